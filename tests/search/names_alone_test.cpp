#include "results/quick_cells.h"
#include "results/selection.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

// Searches for who wants paths and nothing else.
class NamesAloneTest : public ProgramFixture {
  protected:
    void Make() {
        Disk().AddFileOfSize("C:\\t\\a.txt", 5);
        Disk().AddFileOfSize("C:\\t\\sub\\b.txt", 6);
        Disk().AddFileOfSize("C:\\t\\sub\\c.mp3", 7);
        Start();
        WithSubfolders();
        LookForAllAttributes();
        State().blnFindsWithoutBox = true;
        State().options.intLatestYear = session::kAnyYear;
        machine.faults.ResetCounts();
    }
    std::size_t Looks() { return machine.faults.Count("FolderFacts"); }
};

TEST_F(NamesAloneTest, NoFactsAreRead) {
    Make();
    const results::NamesAlone alone(program.Rows(), true);
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\a.txt", "C:\\t\\sub\\b.txt"));
    EXPECT_EQ(Looks(), 0U);
    EXPECT_THAT(Cells(results::kSize), ElementsAre("", ""));
    EXPECT_THAT(Cells(results::kDate), ElementsAre("", ""));
    EXPECT_THAT(Cells(results::kAttributes), ElementsAre("", ""));
    EXPECT_THAT(Cells(results::kExt), ElementsAre("txt", "txt"));
}

// Sightings are for actions, and nobody acts on these rows.
TEST_F(NamesAloneTest, TheSelectionHoldsPathsAndNoSightings) {
    Make();
    const results::NamesAlone alone(program.Rows(), true);
    Search("*.txt", "C:\\t");
    results::cmdSelectAll_Click(program.Session());
    EXPECT_THAT(program.Session().selection->strSelActualPath,
                ElementsAre("C:\\t\\a.txt", "C:\\t\\sub\\b.txt"));
    EXPECT_TRUE(program.Session().selection->sightings.empty());
}

TEST_F(NamesAloneTest, OnceItEndsTheSelectionHoldsSightingsAgain) {
    Make();
    { const results::NamesAlone alone(program.Rows(), true); }
    Search("*.txt", "C:\\t");
    results::cmdSelectAll_Click(program.Session());
    EXPECT_EQ(program.Session().selection->sightings.size(), 2U);
}

TEST_F(NamesAloneTest, WithoutItFactsAreRead) {
    Make();
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Looks(), 2U);
    EXPECT_THAT(Cells(results::kSize), ElementsAre("000,000,000,005", "000,000,000,006"));
}

TEST_F(NamesAloneTest, FactsAreReadAgainOnceItEnds) {
    Make();
    { const results::NamesAlone alone(program.Rows(), true); }
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Looks(), 2U);
}

TEST_F(NamesAloneTest, ABoxThatLeavesSomethingOutNeedsFacts) {
    Make();
    Form().chkHidden.Value = 0;
    const results::NamesAlone alone(program.Rows(), true);
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Looks(), 2U);
}

TEST_F(NamesAloneTest, AttributesWithoutABoxNeedFactsUnlessTheyPass) {
    Make();
    State().blnFindsWithoutBox = false;
    const results::NamesAlone alone(program.Rows(), true);
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Looks(), 2U);
}

TEST_F(NamesAloneTest, ATestOfTheSizeNeedsFacts) {
    Make();
    Click(Form().chkSize);
    Form().cboSize.Text = std::string("At Least");
    Form().txtSize1.Text = std::string("6");
    const results::NamesAlone alone(program.Rows(), true);
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\sub\\b.txt"));
}

TEST_F(NamesAloneTest, EmptyFilesNeedFacts) {
    Disk().AddFile("C:\\t\\sub\\empty.txt");
    Make();
    Choose(Form().optFilesVsDirs, 1);
    const results::NamesAlone alone(program.Rows(), true);
    Search("*", "C:\\t");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\sub\\empty.txt"));
}

TEST_F(NamesAloneTest, FoldersAreFoundByNameToo) {
    Make();
    Choose(Form().optFilesVsDirs, 2);
    const results::NamesAlone alone(program.Rows(), true);
    Search("*", "C:\\t");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\a.txt", "C:\\t\\sub", "C:\\t\\sub\\b.txt",
                                     "C:\\t\\sub\\c.mp3"));
    EXPECT_EQ(Looks(), 0U);
}

} // namespace
} // namespace tarvix::testing
