#include "session/settings/platform_settings.h"
#include "tests/options/options_fixture.h"

#include <algorithm>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

class MachinePage : public OptionsFixture {
  protected:
    bool MachineHas(const std::string& line) {
        return MachineFile().find("\r\n" + line + "\r\n") != std::string::npos;
    }
    const std::vector<std::string>& Drives() { return Window().lstDrives.Items(); }
};

TEST_F(MachinePage, EachSettingThatAUserSetsHasItsField) {
    Start();
    Inside([&] {
        std::vector<std::string> keys;
        for (const auto& field : Window().machine)
            keys.push_back(field.key);
        for (const char* key : {"PathForm", "ListPathForm", "LongestPath", "Editor", "Player",
                                "SecondPlayer", "LatestFileYear"})
            EXPECT_THAT(keys, Contains(key));
        for (const char* key : {"FastSort", "Subfolders", "SearchWindow", "ActionWindow",
                                "ColumnWidths", "ColumnOrder"})
            EXPECT_THAT(keys, Not(Contains(key)));
    });
}

TEST_F(MachinePage, EachFieldComesToItsKeyAndBack) {
    struct Trip {
        const char* control;
        const char* value;
        const char* line;
    };
    Start();
    for (const auto& [control, value, line] : std::vector<Trip>{
             {"cmbPathForm", "native", "PathForm = native"},
             {"cmbPathForm", "drive", "PathForm = drive"},
             {"cmbListPathForm", "drive", "ListPathForm = drive"},
             {"cmbSizeForm", "units", "SizeForm = units"},
             {"cmbLongestPath", "native", "LongestPath = native"},
             {"cmbLongestPath", "259", "LongestPath = 259"},
             {"txtEditor", "kate -b", "Editor = kate -b"},
             {"txtPlayer", "mpv", "Player = mpv"},
             {"txtSecondPlayer", "vlc", "SecondPlayer = vlc"},
             {"txtLatestFileYear", "2031", "LatestFileYear = 2031"},
             {"txtLatestFileYear", "any", "LatestFileYear = any"},
         }) {
        Accept([&] { SetNamed(control, value); });
        EXPECT_TRUE(MachineHas(line)) << line;
        Inside([&] { EXPECT_EQ(ValueOf(control), value); });
    }
}

TEST_F(MachinePage, ASettingCountsAtOnce) {
    Start();
    Accept([&] {
        SetNamed("txtLatestFileYear", "2031");
        SetNamed("cmbPathForm", "native");
    });
    EXPECT_EQ(State().options.intLatestYear, 2031);
    EXPECT_EQ(S().Shown("C:\\home\\ann"), "/home/ann");
}

TEST_F(MachinePage, AValueThatIsNoneIsToldAndTakesNothingIn) {
    Start();
    Inside([&] {
        SetNamed("txtEditor", "kate");
        SetNamed("txtLatestFileYear", "soon");
        Click(Window().cmdOK);
        EXPECT_TRUE(Window().IsShown());
        EXPECT_EQ(Window().Page(), int{fields::kMachinePage});
        EXPECT_EQ(Window().Focus, &Named("txtLatestFileYear"));
    });
    EXPECT_TRUE(WasTold("\"soon\" is no value for LatestFileYear."));
    EXPECT_EQ(State().platformSettings.editor, "");
}

TEST_F(MachinePage, DrivesAreListedWithTheirLetters) {
    Disk().AddDrive("F:", platform::DriveType::kRemovable, "vfat", "/media/ann/STICK");
    Disk().AddFile(kPlatformFile, "Drive K: = /srv/k\r\n*EOF");
    Start();
    Inside([&] {
        EXPECT_THAT(Drives(), Contains("C:  /"));
        EXPECT_THAT(Drives(), Contains("F:  /media/ann/STICK"));
        EXPECT_THAT(Drives(), Contains("K:  /srv/k"));
        SetNamed("lstDrives", "K:  /srv/k");
        EXPECT_EQ(ValueOf("cmbDriveLetter"), "K:");
        EXPECT_EQ(ValueOf("txtDriveFolder"), "/srv/k");
    });
}

TEST_F(MachinePage, ALetterIsGivenAndTakenAway) {
    Start();
    Accept([&] {
        SetNamed("cmbDriveLetter", "K:");
        SetNamed("txtDriveFolder", "/srv/collection");
        EXPECT_THAT(Drives(), Contains("K:  /srv/collection"));
        SetNamed("cmbDriveLetter", "L:");
        EXPECT_EQ(ValueOf("txtDriveFolder"), "");
        SetNamed("txtDriveFolder", "~/Music");
    });
    EXPECT_TRUE(MachineHas("Drive K: = /srv/collection"));
    EXPECT_TRUE(MachineHas("Drive L: = /home/ann/Music"));
    Accept([&] {
        SetNamed("cmbDriveLetter", "K:");
        SetNamed("txtDriveFolder", "");
    });
    EXPECT_THAT(MachineFile(), Not(HasSubstr("Drive K:")));
}

TEST_F(MachinePage, AFolderThatIsNoneIsRefused) {
    Start();
    Inside([&] {
        SetNamed("cmbDriveLetter", "K:");
        SetNamed("txtDriveFolder", "relative");
        SetNamed("cmbDriveLetter", "M:");
        Click(Window().cmdApply);
        EXPECT_EQ(ValueOf("cmbDriveLetter"), "K:");
        EXPECT_EQ(ValueOf("txtDriveFolder"), "relative");
    });
    EXPECT_TRUE(WasTold("\"relative\" is no folder for drive K:. Give its path from / on."));
    EXPECT_TRUE(State().platformSettings.drives.empty());
}

TEST_F(MachinePage, ALetterChosenForAMediumStays) {
    Disk().AddDrive("F:", platform::DriveType::kRemovable, "vfat", "/media/ann/STICK");
    Start();
    Accept([&] {
        SetNamed("cmbDriveLetter", "S:");
        SetNamed("txtDriveFolder", "/media/ann/STICK");
    });
    EXPECT_TRUE(MachineHas("Drive S: = /media/ann/STICK"));
    program.Stop();
    EXPECT_TRUE(MachineHas("Drive S: = /media/ann/STICK"));
    EXPECT_THAT(MachineFile(), Not(HasSubstr("Drive F:")));
}

TEST_F(MachinePage, BrowsingFillsTheFolderOfTheLetter) {
    Start();
    Accept([&] {
        SetNamed("cmbDriveLetter", "P:");
        prompts.Queue("C:\\home\\ann\\Music");
        Click(Window().cmdBrowseDrive);
    });
    EXPECT_TRUE(MachineHas("Drive P: = /home/ann/Music"));
}

TEST(SettingFacts, TellOfEachKeyWhatItIs) {
    const auto all = session::AllSettingFacts();
    const auto listed = session::ListSettings({});
    ASSERT_EQ(all.size(), listed.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i].key, listed[i].key);
        EXPECT_TRUE(all[i].comment.ends_with('.')) << all[i].key;
    }
    EXPECT_EQ(all[0].choices, "native|drive");
    EXPECT_FALSE(all[0].isRemembered);
}

} // namespace
} // namespace tarvix::testing
