#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

constexpr const char* kFull = " You are about to run out of memory this application can use, "
                              "stopping the search at 250,000 objects in the list.";

class ObjectLimit : public ProgramFixture {
  protected:
    void AddFiles(int count) {
        for (int i = 0; i < count; ++i) {
            Disk().AddFile("C:\\t\\" + std::to_string(i / 1000) + "\\" + std::to_string(i));
        }
    }
    // As many files as if they had been found, from the moment when the search has reset its
    // counts.
    void PretendFound(std::int64_t files) {
        S().yielder.After(1, [this, files] { State().lngFilesFound = files; });
    }
};

TEST_F(ObjectLimit, The250000thObjectStopsTheSearchWithTheMessageAndKeepsTheRows) {
    AddFiles(250'001);
    Start();
    WithSubfolders();
    Search("*", "C:\\t");
    EXPECT_EQ(program.Rows().Count(), 250'000U);
    EXPECT_EQ(TimesTold(kFull), 1U);
    EXPECT_EQ(Told().size(), 1U);
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "250000");
    EXPECT_EQ(Form().lblNumOfFilesAttrib.Caption.Get(), "250001");
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Search stopped prematurely");
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

TEST_F(ObjectLimit, FilesAndFoldersCountTogether) {
    AddFiles(3);
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 2);
    PretendFound(249'997);
    Search("*", "C:\\t");
    EXPECT_EQ(program.Rows().Count(), 3U) << "one folder and two of its files";
    EXPECT_EQ(TimesTold(kFull), 1U);
}

TEST_F(ObjectLimit, OneLessIsANormalEnd) {
    AddFiles(3);
    Start();
    WithSubfolders();
    PretendFound(249'996);
    Search("*", "C:\\t");
    EXPECT_EQ(program.Rows().Count(), 3U);
    EXPECT_TRUE(Told().empty());
    EXPECT_TRUE(HasEntry(LogText(), " Normal end to search"));
}

} // namespace
} // namespace tarvix::testing
