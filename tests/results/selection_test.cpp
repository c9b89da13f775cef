#include "results/selection.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
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

TEST_F(SelectionTables, RowsCanAllBeSelectedWithoutThem) {
    FindAll();
    program.Rows().InsertSpacers({1});
    EXPECT_EQ(results::SelectAllRows(S()), 3);
    EXPECT_THAT(Selected(), ElementsAre(true, false, true, true));
    ExpectCounters("2", "1", "7");
    EXPECT_EQ(Tables().lngSelTop, -1);
    results::BuildFileArray(S());
    EXPECT_THAT(Tables().strSelName, ElementsAre("a.txt", "b.txt", "sub"));
}

TEST_F(SelectionTables, OfADrivesRootHaveOneBackslash) {
    Disk().AddFile("C:\\root.txt", "1");
    Start();
    Search("root*", "C:\\");
    Click(Form().cmdSelectAll);
    EXPECT_THAT(Tables().strSelPath, ElementsAre("C:\\root.txt"));
    EXPECT_THAT(Tables().strSelRelPath, ElementsAre("root.txt"));
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

class ChangingSelection : public SelectionTables {
  protected:
    // Rows a.txt, b.txt, e0.txt to e9.txt and the folder "sub".
    ChangingSelection() {
        for (int i = 0; i < 10; ++i)
            Disk().AddFile("C:\\t\\e" + std::to_string(i) + ".txt", "12345");
    }
    void SelectOnly(const std::vector<std::size_t>& rows) {
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            program.Rows().At(i).selected = std::ranges::find(rows, i) != rows.end();
        }
        results::BuildFileArray(S());
    }
    // The tables hold these objects of C:\t alone; "sub" is the folder among them.
    void ExpectTables(const std::vector<std::string>& names) {
        std::vector<std::string> paths;
        std::vector<bool> isFile;
        for (const std::string& name : names) {
            paths.push_back("C:\\t\\" + name);
            isFile.push_back(name != "sub");
        }
        EXPECT_THAT(Tables().strSelName, ElementsAreArray(names));
        EXPECT_THAT(Tables().strSelPath, ElementsAreArray(paths));
        EXPECT_THAT(Tables().strSelRelPath, ElementsAreArray(names));
        EXPECT_THAT(Tables().strSelActualPath, ElementsAreArray(paths));
        EXPECT_EQ(Tables().blnSelIsFile, isFile);
        EXPECT_EQ(Tables().blnSelNoDate, std::vector<bool>(names.size(), false));
        EXPECT_EQ(Tables().lngSelTop, static_cast<std::int64_t>(names.size()) - 1);
    }
};

TEST_F(ChangingSelection, ShrinksByAFewAndByMost) {
    FindAll();
    Click(Form().cmdSelectAll);
    ASSERT_EQ(Tables().strSelName.size(), 13U);
    SelectOnly({1, 2, 3, 4, 5, 6, 7, 12});
    ExpectTables({"b.txt", "e0.txt", "e1.txt", "e2.txt", "e3.txt", "e4.txt", "e5.txt", "sub"});
    EXPECT_EQ(Tables().lngSelBytes, 4 + 6 * 5);
    SelectOnly({12});
    ExpectTables({"sub"});
    EXPECT_EQ(Tables().lngSelBytes, 0);
    ExpectCounters("0", "1", "00,000,000,000");
}

TEST_F(ChangingSelection, GrowsAgain) {
    FindAll();
    SelectOnly({0});
    ExpectTables({"a.txt"});
    SelectOnly({0, 12});
    ExpectTables({"a.txt", "sub"});
    SelectOnly({11, 12});
    ExpectTables({"e9.txt", "sub"});
    SelectOnly({0, 1, 2, 3, 12});
    ExpectTables({"a.txt", "b.txt", "e0.txt", "e1.txt", "sub"});
}

TEST_F(ChangingSelection, BecomesEmptyAndGrowsFromThere) {
    FindAll();
    Click(Form().cmdSelectAll);
    SelectOnly({});
    ExpectTables({});
    EXPECT_EQ(Tables().lngSelBytes, 0);
    SelectOnly({1, 12});
    ExpectTables({"b.txt", "sub"});
}

TEST_F(ChangingSelection, OfOneSizeWithOtherRows) {
    FindAll();
    SelectOnly({12, 0});
    ExpectTables({"a.txt", "sub"});
    SelectOnly({1, 11});
    ExpectTables({"b.txt", "e9.txt"});
    EXPECT_EQ(Tables().lngSelBytes, 4 + 5);
}

TEST_F(ChangingSelection, ANameThatIsShorterLeavesNothingOfALongerOne) {
    Disk().AddFile("C:\\t\\deep\\a name that is longer than all the others.txt", "1");
    FindAll();
    std::size_t longest = 0;
    for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
        if (program.Rows().At(i).name.size() > 20) longest = i;
    }
    SelectOnly({longest});
    EXPECT_THAT(Tables().strSelRelPath,
                ElementsAre("deep\\a name that is longer than all the others.txt"));
    SelectOnly({0});
    ExpectTables({"a.txt"});
}

TEST_F(ChangingSelection, SelectedSpacersAreUnselectedWhereverTheyStand) {
    FindAll();
    Click(Form().cmdSelectAll);
    program.Rows().InsertSpacers({2, 3}); // rows a, b, spacer, e0, spacer, e1 ...
    ASSERT_TRUE(program.Rows().At(2).IsSpacer());
    ASSERT_TRUE(program.Rows().At(4).IsSpacer());
    SelectOnly({1, 2, 4, 5});
    ExpectTables({"b.txt", "e1.txt"});
    EXPECT_FALSE(program.Rows().At(2).selected);
    EXPECT_FALSE(program.Rows().At(4).selected);
    EXPECT_TRUE(program.Rows().At(5).selected);
    SelectOnly({2, 4});
    ExpectTables({});
}

TEST_F(ChangingSelection, ARowWithoutADateIsMarkedInItsOwnPlace) {
    FindAll();
    program.Rows().At(1).date = results::kNoDate;
    SelectOnly({0, 1, 2});
    EXPECT_THAT(Tables().blnSelNoDate, ElementsAre(false, true, false));
    SelectOnly({1, 2});
    EXPECT_THAT(Tables().blnSelNoDate, ElementsAre(true, false));
    SelectOnly({2, 3});
    EXPECT_THAT(Tables().blnSelNoDate, ElementsAre(false, false));
}

TEST_F(ChangingSelection, TheAnchorStays) {
    FindAll();
    program.Rows().At(1).selected = true;
    results::lstMain_ItemClick(S(), 1);
    SelectOnly({3});
    SelectOnly({});
    EXPECT_EQ(Tables().intSelAnchor, 1);
    EXPECT_EQ(Tables().strSelAnchorName, "b.txt");
}

TEST_F(ChangingSelection, ANewSearchStartsFromNothing) {
    FindAll();
    Click(Form().cmdSelectAll);
    Search("b*", "C:\\t");
    Click(Form().cmdSelectAll);
    ExpectTables({"b.txt"});
}

TEST_F(SelectionTables, ExtensionsThatOnlyLookLikeShortcutsDoNotShowTheButton) {
    for (const char* name : {"x.lnkx", "x.ln", "x.lnk.txt", "lnk", "x.url2"})
        Disk().AddFile("C:\\t\\" + std::string(name));
    FindAll();
    Click(Form().cmdSelectAll);
    EXPECT_FALSE(Form().cmdEditTargets.Visible);
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
    for (const fields::Label* label :
         {&Form().lblNumOfFilesSelected, &Form().lblNumOfDirsSelected, &Form().lblNumOfFilesFound,
          &Form().lblNumOfDirsFound, &Form().lblNumOfFilesAttrib, &Form().lblNumOfDirsAttrib,
          &Form().lblTotalSize}) {
        EXPECT_EQ(label->Caption.Get(), "0") << label->Name();
        EXPECT_EQ(label->ForeColor.Get(), 0U) << label->Name();
    }
    for (const fields::Control* hidden : std::initializer_list<const fields::Control*>{
             &Form().fraSelection, &Form().fraStandardAction, &Form().cmdDeleteSelected,
             &Form().cmdRenameSelected, &Form().cmdDoVersionSort, &Form().cmdEditTargets}) {
        EXPECT_FALSE(hidden->Visible) << hidden->Name();
    }
    for (const fields::Control* disabled : std::initializer_list<const fields::Control*>{
             &Form().mnuRun, &Form().mnuActions, &Form().mnuTools_CreateMPLfromCombo,
             &Form().mnuTools_DeleteFolderContentsOnly, &Form().mnuTools_FolderSummary,
             &Form().mnuTools_NameVersionSort, &Form().mnuTools_RemoveUnAndMove,
             &Form().mnuTools_BypassMPL, &Form().mnuTools_NewSearchFor}) {
        EXPECT_FALSE(disabled->Enabled) << disabled->Name();
    }
}

} // namespace
} // namespace tarvix::testing
