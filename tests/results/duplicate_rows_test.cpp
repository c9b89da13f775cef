#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

// One object found by several search strings.
class DuplicateRows : public ProgramFixture {
  protected:
    DuplicateRows() {
        Disk().AddFile("C:\\t\\ab.txt");
        Disk().AddFile("C:\\t\\b.mp3");
        Disk().AddFile("C:\\t\\sub\\ab.txt");
    }
    std::vector<std::string> Entries() { return Cells(results::kSearchForEntry); }
};

TEST_F(DuplicateRows, StayOneRowWhoseEntryReadsBothIndexes) {
    Start();
    Search("a*|*.mp3|*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("ab.txt", "b.mp3"));
    EXPECT_THAT(Entries(), ElementsAre("0103", "02"));
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "2") << "counted once";
}

TEST_F(DuplicateRows, WithTheSameNameInAnotherFolderAreRowsOfTheirOwn) {
    Start();
    WithSubfolders();
    Search("a*|*.txt", "C:\\t");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\ab.txt", "C:\\t\\sub\\ab.txt"));
    EXPECT_THAT(Entries(), ElementsAre("0102", "0102"));
}

TEST_F(DuplicateRows, AnIndexIsNotMistakenForPartOfTwoOthers) {
    // Strings 1 and 3 make "0103", in which the text "10" stands; string 10 is still to be added.
    Start();
    Search("a*|*.x2|*.txt|*.x4|*.x5|*.x6|*.x7|*.x8|*.x9|ab.*", "C:\\t");
    EXPECT_THAT(Entries(), ElementsAre("010310"));
}

TEST_F(DuplicateRows, AreListedTwiceWhenTheOptionAsksForIt) {
    Start();
    State().options.blnListDupsWhenSearchStringsNotExclusive = true;
    Search("a*|*.txt", "C:\\t");
    EXPECT_THAT(Entries(), ElementsAre("01", "02"));
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "2");
}

TEST_F(DuplicateRows, OfFoldersStayOneRowToo) {
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 3);
    Search("s*|*b", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("sub"));
    EXPECT_THAT(Entries(), ElementsAre("0102"));
}

TEST_F(DuplicateRows, NamesThatDifferInCaseOnlyAreTwoObjects) {
    Disk().AddFile("C:\\t\\AB.txt");
    Start();
    Search("a*|*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("AB.txt", "ab.txt"));
    EXPECT_THAT(Entries(), ElementsAre("0102", "0102"));
}

TEST_F(DuplicateRows, OfOverlappingLocationsAreListedOnceForEach) {
    Start();
    WithSubfolders();
    Search("*.txt", "C:\\t|C:\\t\\sub");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\ab.txt", "C:\\t\\sub\\ab.txt", "C:\\t\\sub\\ab.txt"));
    EXPECT_THAT(Cells(results::kSearchFolderIndex), ElementsAre("1", "1", "2"));
}

} // namespace
} // namespace tarvix::testing
