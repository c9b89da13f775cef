#include "search/native_places.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

class Places : public ProgramFixture {
  protected:
    Places() { S().platform.traits.hasNativePaths = true; }
    std::vector<std::string> Listed() {
        std::vector<std::string> lines;
        for (const search::NamedPlace& place : search::NativePlaces(S())) {
            std::string line = place.title + "=";
            for (const std::string& folder : place.folders)
                line += " " + folder;
            lines.push_back(line);
        }
        return lines;
    }
};

TEST_F(Places, ThoseThatExistAreOfferedByTheirTitles) {
    Disk().AddFolder("C:\\home\\ann\\Documents");
    Disk().AddFolder("C:\\srv\\films");
    Disk().AddFolder("C:\\tmp");
    machine.environment.Set("Videos", "C:\\srv\\films");
    machine.environment.Set("Desktop", "C:\\home\\ann");
    EXPECT_THAT(Listed(),
                ElementsAre(" Home = C:\\home\\ann", " Documents = C:\\home\\ann\\Documents",
                            " Downloads = C:\\home\\ann\\Downloads",
                            " Music = C:\\home\\ann\\Music", " Videos = C:\\srv\\films",
                            " This computer (/) = C:\\", " Temporary files = C:\\tmp"));
}

TEST_F(Places, EachMediumHasItsOwnAndAllHaveOne) {
    Disk().AddDrive("D:", platform::DriveType::kCdRom);
    Disk().AddDrive("E:", platform::DriveType::kRemovable);
    Disk().AddDrive("F:", platform::DriveType::kRemovable);
    Disk().SetReady("F:", false);
    const auto listed = Listed();
    EXPECT_THAT(listed, ::testing::Contains(" All media = D:\\ E:\\"));
    EXPECT_EQ(std::ranges::count_if(listed,
                                    [](const std::string& line) {
                                        return line.ends_with("= D:\\") ||
                                               line.ends_with("= E:\\") || line.ends_with("= F:\\");
                                    }),
              2);
}

TEST_F(Places, StandInTheBoxInPlaceOfTheToldRows) {
    Start();
    const auto& options = State().options;
    EXPECT_EQ(options.strDefSearchFolderTitle[session::kConfiguredFolders], " Home ");
    for (const std::string& title : options.strDefSearchFolderTitle)
        EXPECT_EQ(title.find("Windows"), title.npos) << title;
    Set(Form().cmbDir, " Home ");
    Click(Form().cmdSearch);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann");
}

} // namespace
} // namespace tarvix::testing
