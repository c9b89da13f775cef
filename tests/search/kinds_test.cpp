#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The five kinds of object, with and without subfolders, and what else narrows a search.
class Kinds : public ProgramFixture {
  protected:
    Kinds() {
        Disk().AddFile("C:\\t\\full.txt", "1");
        Disk().AddFile("C:\\t\\zero.txt");
        Disk().AddFile("C:\\t\\sub\\full2.txt", "22");
        Disk().AddFile("C:\\t\\sub\\zero2.txt");
        Disk().AddFolder("C:\\t\\sub\\hollow2");
        Disk().AddFolder("C:\\t\\hollow");
    }
    void Find(int kind, bool subfolders, std::string_view pattern = "*") {
        Start();
        if (subfolders) WithSubfolders();
        Choose(Form().optFilesVsDirs, kind);
        Search(pattern, "C:\\t");
    }
};

TEST_F(Kinds, FilesAtTheRoot) {
    Find(0, false);
    EXPECT_THAT(Names(), ElementsAre("full.txt", "zero.txt"));
}

TEST_F(Kinds, FilesInSubfolders) {
    Find(0, true);
    EXPECT_THAT(Names(), ElementsAre("full.txt", "zero.txt", "full2.txt", "zero2.txt"));
}

TEST_F(Kinds, EmptyFilesAtTheRoot) {
    Find(1, false);
    EXPECT_THAT(Names(), ElementsAre("zero.txt"));
}

TEST_F(Kinds, EmptyFilesInSubfolders) {
    Find(1, true);
    EXPECT_THAT(Names(), ElementsAre("zero.txt", "zero2.txt"));
}

TEST_F(Kinds, AllObjectsAtTheRoot) {
    Find(2, false);
    EXPECT_THAT(Names(), ElementsAre("full.txt", "zero.txt", "hollow", "sub"));
}

TEST_F(Kinds, AllObjectsInSubfolders) {
    Find(2, true);
    EXPECT_THAT(Names(), ElementsAre("full.txt", "zero.txt", "hollow", "sub", "full2.txt",
                                     "zero2.txt", "hollow2"));
}

TEST_F(Kinds, FoldersAtTheRoot) {
    Find(3, false);
    EXPECT_THAT(Names(), ElementsAre("hollow", "sub"));
}

TEST_F(Kinds, FoldersInSubfolders) {
    Find(3, true);
    EXPECT_THAT(Names(), ElementsAre("hollow", "sub", "hollow2"));
}

TEST_F(Kinds, EmptyFoldersAtTheRoot) {
    Find(4, false);
    EXPECT_THAT(Names(), ElementsAre("hollow"));
}

TEST_F(Kinds, EmptyFoldersInSubfolders) {
    Find(4, true);
    EXPECT_THAT(Names(), ElementsAre("hollow", "hollow2"));
}

TEST_F(Kinds, TheLocationItselfIsNeverARow) {
    Find(3, true, "t");
    EXPECT_THAT(Names(), ElementsAre()) << "\"t\" is wrapped to \"*t*\"; only the location has one";
}

TEST_F(Kinds, FoldersMatchByTheirOwnLastName) {
    Find(3, true, "hollow?");
    EXPECT_THAT(Names(), ElementsAre("hollow2"));
}

TEST_F(Kinds, TheLevelOneListServesWhenTheCountsAreNotShown) {
    Start();
    S().blnListItems[results::kFilesInFolder] = false;
    S().blnListItems[results::kFoldersInFolder] = false;
    for (const auto& [kind, names] :
         {std::pair{2, std::vector<std::string>{"full.txt", "zero.txt", "hollow", "sub"}},
          std::pair{3, std::vector<std::string>{"hollow", "sub"}},
          std::pair{4, std::vector<std::string>{"hollow"}}}) {
        Choose(Form().optFilesVsDirs, kind);
        Search("*", "C:\\t");
        EXPECT_EQ(Names(), names) << kind;
    }
}

TEST_F(Kinds, ASizeTestWithoutSubfoldersListsNoFolders) {
    Start();
    Choose(Form().optFilesVsDirs, 2);
    Click(Form().chkSize);
    Set(Form().txtSize1, "1");
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("full.txt"));
}

TEST_F(Kinds, EmptyFilesIgnoreTheSizeTest) {
    Start();
    Choose(Form().optFilesVsDirs, 1);
    Click(Form().chkSize);
    Set(Form().txtSize1, "1");
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("zero.txt"));
}

TEST_F(Kinds, ALikeCharacterInFoldersModeFindsTheSameWithAndWithoutSubfolders) {
    Disk().AddFolder("C:\\t\\[live] one");
    Disk().AddFolder("C:\\t\\sub\\[live] two");
    Disk().AddFolder("C:\\t\\l");
    Find(3, true, "[live]");
    EXPECT_THAT(Names(), ElementsAre("[live] one", "[live] two"));
    Set(Form().chkIncludeSubFolders, "0");
    Click(Form().cmdSearch);
    EXPECT_THAT(Names(), ElementsAre("[live] one"));
}

TEST_F(Kinds, ALikeCharacterInTheOtherModes) {
    Disk().AddFile("C:\\t\\sub\\a#1.txt");
    Disk().AddFolder("C:\\t\\sub\\b#2");
    Find(0, true, "#");
    EXPECT_THAT(Names(), ElementsAre("a#1.txt"));
    Choose(Form().optFilesVsDirs, 1);
    Click(Form().cmdSearch);
    EXPECT_THAT(Names(), ElementsAre("a#1.txt"));
    Choose(Form().optFilesVsDirs, 4);
    Click(Form().cmdSearch);
    EXPECT_THAT(Names(), ElementsAre("b#2"));
}

TEST_F(Kinds, ALaterStringWithALikeCharacterStillFindsAll) {
    Disk().AddFile("C:\\t\\sub\\a#1.mp3");
    Find(0, true, "full*.*|a#*.*");
    EXPECT_THAT(Names(), ElementsAre("full.txt", "full2.txt", "a#1.mp3"));
}

TEST_F(Kinds, NotListsWhatDoesNotMatch) {
    Start();
    WithSubfolders();
    Set(Form().chkNot, "1");
    Choose(Form().optFilesVsDirs, 2);
    Search("full*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("zero.txt", "hollow", "sub", "zero2.txt", "hollow2"));
}

TEST_F(Kinds, OneEachTakesTheFirstFileOfEachFolder) {
    for (const char* folder : {"1", "2", "3", "4"}) {
        Disk().AddFile("C:\\five\\" + std::string(folder) + "\\b.txt");
        Disk().AddFile("C:\\five\\" + std::string(folder) + "\\a.txt");
        Disk().AddFile("C:\\five\\" + std::string(folder) + "\\a.mp3");
        Disk().AddFile("C:\\five\\" + std::string(folder) + "\\b.mp3");
    }
    for (const char* name : {"a.txt", "b.txt", "a.mp3", "b.mp3"}) {
        Disk().AddFile("C:\\five\\" + std::string(name));
    }
    Start();
    WithSubfolders();
    Set(Form().chkOneEach, "1");
    Search("*.txt|*.mp3", "C:\\five");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "a.txt", "a.txt", "a.txt", "a.txt", "a.mp3", "a.mp3",
                                     "a.mp3", "a.mp3", "a.mp3"));
    EXPECT_THAT(Cells(results::kSearchForEntry),
                ElementsAre("01", "01", "01", "01", "01", "02", "02", "02", "02", "02"));
}

TEST_F(Kinds, OneEachTakesTheFirstFileThatPassesEveryTest) {
    Start();
    WithSubfolders();
    Set(Form().chkOneEach, "1");
    Click(Form().chkSize);
    Set(Form().cboSize, "At Most");
    Set(Form().txtSize1, "0");
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("zero.txt", "zero2.txt"));
}

TEST_F(Kinds, OneEachIsNotReadByEmptyFiles) {
    Disk().AddFile("C:\\t\\zero another.txt");
    Start();
    Set(Form().chkOneEach, "1");
    Choose(Form().optFilesVsDirs, 1);
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("zero another.txt", "zero.txt"));
}

TEST_F(Kinds, OneEachNarrowsAllObjectsOnlyAtTheRoot) {
    Start();
    WithSubfolders();
    Set(Form().chkOneEach, "1");
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    EXPECT_THAT(Names(),
                ElementsAre("full.txt", "hollow", "sub", "full2.txt", "zero2.txt", "hollow2"));
}

TEST_F(Kinds, ALocationIsFinishedWithAllStringsBeforeTheNextBegins) {
    Disk().AddFile("C:\\u\\full3.txt", "1");
    Disk().AddFile("C:\\u\\zero3.txt", "1");
    Start();
    Search("zero*|full*", "C:\\t|C:\\u");
    EXPECT_THAT(Names(), ElementsAre("zero.txt", "full.txt", "zero3.txt", "full3.txt"));
    EXPECT_THAT(Cells(results::kSearchFolderIndex), ElementsAre("1", "1", "2", "2"));
}

} // namespace
} // namespace tarvix::testing
