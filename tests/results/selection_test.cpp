#include "results/selection.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SelectionTables : public ProgramFixture {
  protected:
    SelectionTables() {
        Disk().AddFile("C:\\t\\a.txt", "123");
        Disk().AddFile("C:\\t\\b.txt", "1234");
        Disk().AddFolder("C:\\t\\sub");
    }
    void FindAll() {
        Start();
        WithSubfolders();
        Choose(Form().optFilesVsDirs, 2);
        Search("*", "C:\\t");
    }
    std::vector<bool> Selected() {
        std::vector<bool> states;
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            states.push_back(program.Rows().At(i).selected);
        }
        return states;
    }
    void ExpectCounters(const char* files, const char* folders, const char* bytes) {
        EXPECT_EQ(Form().lblNumOfFilesSelected.Caption.Get(), files);
        EXPECT_EQ(Form().lblNumOfDirsSelected.Caption.Get(), folders);
        EXPECT_EQ(Form().lblTotalSize.Caption.Get(), bytes);
    }
    results::Selection& Tables() { return program.Selection(); }
};

TEST_F(SelectionTables, HoldEverythingInListOrder) {
    FindAll();
    Click(Form().cmdSelectAll);
    EXPECT_THAT(Tables().strSelName, ElementsAre("a.txt", "b.txt", "sub"));
    EXPECT_THAT(Tables().strSelPath, ElementsAre("C:\\t\\a.txt", "C:\\t\\b.txt", "C:\\t\\sub"));
    EXPECT_THAT(Tables().strSelRelPath, ElementsAre("a.txt", "b.txt", "sub"));
    EXPECT_THAT(Tables().blnSelIsFile, ElementsAre(true, true, false));
    EXPECT_THAT(Tables().blnSelNoDate, ElementsAre(false, false, false));
    EXPECT_EQ(Tables().strSelActualPath.size(), 3U);
    EXPECT_EQ(Tables().lngSelTop, 2);
    ExpectCounters("2", "1", "7");
}

TEST_F(SelectionTables, TheTotalOfThreeAndFourBytesReadsSeven) {
    FindAll();
    Click(Form().cmdSelectAllFiles);
    ExpectCounters("2", "0", "7");
    EXPECT_THAT(Selected(), ElementsAre(true, true, false));
}

TEST_F(SelectionTables, LargeTotalsHaveSeparators) {
    Disk().AddFileOfSize("C:\\t\\c.txt", 5'000'000'000'000);
    FindAll();
    Click(Form().cmdSelectAllFiles);
    ExpectCounters("3", "0", "5,000,000,000,007");
}

TEST_F(SelectionTables, FoldersOnlyLeaveTheTotalAtZeros) {
    FindAll();
    Click(Form().cmdSelectAllDirs);
    EXPECT_THAT(Selected(), ElementsAre(false, false, true));
    ExpectCounters("0", "1", "00,000,000,000");
}

TEST_F(SelectionTables, NoneClearsAllAndTheAnchor) {
    FindAll();
    Click(Form().cmdSelectAll);
    results::lstMain_ItemClick(S(), 1);
    EXPECT_EQ(Tables().intSelAnchor, 1);
    EXPECT_EQ(Tables().strSelAnchorName, "b.txt");
    Click(Form().cmdSelectNone);
    EXPECT_THAT(Selected(), ElementsAre(false, false, false));
    EXPECT_EQ(Tables().lngSelTop, -1);
    EXPECT_EQ(Tables().intSelAnchor, -1);
    EXPECT_THAT(Tables().strSelPath, IsEmpty());
    ExpectCounters("0", "0", "00,000,000,000");
}

TEST_F(SelectionTables, ReverseOfAnEmptySelectionSelectsAllButSpacers) {
    FindAll();
    program.Rows().InsertSpacers({1});
    Click(Form().cmdSelectReverse);
    EXPECT_THAT(Selected(), ElementsAre(true, false, true, true));
    ExpectCounters("2", "1", "7");
}

TEST_F(SelectionTables, ReverseFlipsEachRow) {
    FindAll();
    Click(Form().cmdSelectAllDirs);
    Click(Form().cmdSelectReverse);
    EXPECT_THAT(Selected(), ElementsAre(true, true, false));
}

TEST_F(SelectionTables, AllInAGroupedListLeavesSpacersOut) {
    FindAll();
    program.Rows().InsertSpacers({1, 2});
    Click(Form().cmdSelectAll);
    EXPECT_THAT(Selected(), ElementsAre(true, false, true, false, true));
    ExpectCounters("2", "1", "7");
    EXPECT_EQ(Tables().lngSelTop, 2);
}

TEST_F(SelectionTables, AClickedSpacerIsUnselectedAndIsNoAnchor) {
    FindAll();
    program.Rows().InsertSpacers({1});
    program.Rows().At(1).selected = true;
    results::lstMain_ItemClick(S(), 1);
    EXPECT_FALSE(program.Rows().At(1).selected);
    EXPECT_EQ(Tables().intSelAnchor, -1);
}

TEST_F(SelectionTables, ASelectedSpacerIsNeitherTakenNorLeftSelected) {
    FindAll();
    program.Rows().InsertSpacers({1});
    program.Rows().At(1).selected = true;
    results::BuildFileArray(S());
    EXPECT_EQ(Tables().lngSelTop, -1);
    EXPECT_FALSE(program.Rows().At(1).selected);
}

TEST_F(SelectionTables, ShortcutsShowTheButtonForTheirTargets) {
    Disk().AddFile("C:\\t\\L.LNK");
    Disk().AddFile("C:\\t\\u.url");
    FindAll();
    EXPECT_FALSE(Form().cmdEditTargets.Visible);
    for (const std::size_t row : {2U, 3U}) {
        Click(Form().cmdSelectNone);
        program.Rows().At(row).selected = true;
        results::BuildFileArray(S());
        EXPECT_TRUE(Form().cmdEditTargets.Visible) << row;
    }
    Click(Form().cmdSelectAllDirs);
    EXPECT_FALSE(Form().cmdEditTargets.Visible);
}

TEST_F(SelectionTables, CommandsAreLoggedButNoneIsNot) {
    FindAll();
    Click(Form().cmdSelectAll);
    Click(Form().cmdSelectAllDirs);
    Click(Form().cmdSelectAllFiles);
    Click(Form().cmdSelectReverse);
    Click(Form().cmdSelectNone);
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "");
    const std::string log = LogText();
    for (const char* entry :
         {" User selected all files and folders", " User selected all folders",
          " User selected all files.", " User selected to reverse current selection."}) {
        EXPECT_TRUE(HasEntry(log, entry)) << entry;
    }
}

TEST_F(SelectionTables, ClearingTheListForgetsThemToo) {
    FindAll();
    Click(Form().cmdSelectAll);
    results::ClearList(S());
    EXPECT_EQ(program.Rows().Count(), 0U);
    EXPECT_EQ(Tables().lngSelTop, -1);
    for (const forms::Label* label :
         {&Form().lblNumOfFilesSelected, &Form().lblNumOfDirsSelected, &Form().lblNumOfFilesFound,
          &Form().lblNumOfDirsFound, &Form().lblNumOfFilesAttrib, &Form().lblNumOfDirsAttrib,
          &Form().lblTotalSize}) {
        EXPECT_EQ(label->Caption.Get(), "0") << label->Name();
        EXPECT_EQ(label->ForeColor.Get(), 0U) << label->Name();
    }
    for (const forms::Control* hidden : std::initializer_list<const forms::Control*>{
             &Form().fraSelection, &Form().fraStandardAction, &Form().cmdDeleteSelected,
             &Form().cmdRenameSelected, &Form().cmdDoVersionSort, &Form().cmdEditTargets}) {
        EXPECT_FALSE(hidden->Visible) << hidden->Name();
    }
    for (const forms::Control* disabled : std::initializer_list<const forms::Control*>{
             &Form().mnuRun, &Form().mnuActions, &Form().mnuTools_CreateMPLfromCombo,
             &Form().mnuTools_DeleteFolderContentsOnly, &Form().mnuTools_FolderSummary,
             &Form().mnuTools_NameVersionSort, &Form().mnuTools_RemoveUnAndMove,
             &Form().mnuTools_BypassMPL, &Form().mnuTools_NewSearchFor}) {
        EXPECT_FALSE(disabled->Enabled) << disabled->Name();
    }
}

} // namespace
} // namespace tarvix::testing
