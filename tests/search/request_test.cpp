#include "search/search_button.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The one driver of a search: what it locks, shows and logs, and how it ends.
class Request : public ProgramFixture {
  protected:
    Request() {
        for (const char* name : {"a.txt", "b.txt", "c.txt", "s\\d.txt", "s\\e.txt", "u\\f.txt"}) {
            Disk().AddFile("C:\\t\\" + std::string(name), "1");
        }
    }
    // Runs `act` once, at the first yield at which `reached` holds.
    void When(std::function<bool()> reached, std::function<void()> act) {
        S().yielder.After(1, [this, reached = std::move(reached), act = std::move(act)] {
            if (reached()) {
                act();
            } else {
                When(reached, act);
            }
        });
    }
    void WhenFound(std::int64_t files, std::function<void()> act) {
        When([this, files] { return State().lngFilesFound >= files; }, std::move(act));
    }
};

TEST_F(Request, LogsWhatWasAskedAndEachPortion) {
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 2);
    Search("*.txt|*.mp3", "C:\\t");
    const std::string log = LogText();
    for (const char* entry :
         {" User selected to search for files and folders and search subfolders with "
          "'*.txt|*.mp3' in C:\\t",
          " Start portion of search for files and folders with *.txt in C:\\t",
          " Start portion of search for files and folders with *.mp3 in C:\\t",
          " Normal end to search"}) {
        EXPECT_TRUE(HasEntry(log, entry)) << entry;
    }
}

TEST_F(Request, NamesEveryKindInItsLog) {
    Start();
    const char* kinds[] = {"files", "empty files", "files and folders", "folders", "empty folders"};
    for (int kind = 0; kind < 5; ++kind) {
        Choose(Form().optFilesVsDirs, kind);
        Search("x.y", "C:\\t");
    }
    const std::string log = LogText();
    for (const char* kind : kinds) {
        EXPECT_TRUE(HasEntry(log, std::string(" User selected to search for ") + kind +
                                      " with 'x.y' in C:\\t"))
            << kind;
    }
}

TEST_F(Request, LocksTheFormWhileItWalks) {
    Start();
    bool seen = false;
    WhenFound(1, [&] {
        seen = true;
        for (const fields::Control* control :
             std::initializer_list<const fields::Control*>{&Form().cmbSearchFor,
                                                           &Form().cboTargetPath,
                                                           &Form().cmbDir,
                                                           &Form().cboSize,
                                                           &Form().txtSize1,
                                                           &Form().txtSize2,
                                                           &Form().cboDate,
                                                           &Form().chkNot,
                                                           &Form().chkIncludeSubFolders,
                                                           &Form().chkReadOnly,
                                                           &Form().chkHidden,
                                                           &Form().chkSystem,
                                                           &Form().chkArchive,
                                                           &Form().chkAlias,
                                                           &Form().chkCompressed,
                                                           &Form().chkOneEach,
                                                           &Form().chkSize,
                                                           &Form().chkDate,
                                                           &Form().optFilesVsDirs[0],
                                                           &Form().optFilesVsDirs[4],
                                                           &Form().cmdClearFolders,
                                                           &Form().cmdSearch,
                                                           &Form().cmdBrowse,
                                                           &Form().mnuBrowse,
                                                           &Form().mnuTools,
                                                           &Form().mnuActions,
                                                           &Form().lstMain}) {
            EXPECT_FALSE(control->Enabled) << control->Name();
        }
        EXPECT_TRUE(Form().cmdStop.Visible);
        EXPECT_FALSE(Form().cmdNext.Visible);
        EXPECT_FALSE(Form().lblTotalSize.Visible);
        EXPECT_FALSE(Form().fraSelection.Visible);
        EXPECT_EQ(Form().lblStatus.Caption.Get(), "Searching");
        EXPECT_EQ(Form().lblSearchFor.Caption.Get(), "Current search string - *.txt");
        EXPECT_EQ(Form().lblCurrentFolder.Caption.Get(), "Current search folder - C:\\t");
    });
    Search("*.txt", "C:\\t");
    EXPECT_TRUE(seen);
}

TEST_F(Request, ARepeatSearchAndNotShowInTheStatus) {
    Start();
    Set(Form().chkRepeatSearch, "1");
    Set(Form().chkNot, "1");
    bool seen = false;
    WhenFound(1, [&] {
        seen = true;
        EXPECT_EQ(Form().lblStatus.Caption.Get(), "Repeat searching");
        EXPECT_EQ(Form().lblSearchFor.Caption.Get(), "Current search string - Not *.mp3");
    });
    Search("*.mp3", "C:\\t");
    EXPECT_TRUE(seen);
}

TEST_F(Request, LeavesTheFormIdleWithItsCountersBlue) {
    Start();
    WithSubfolders();
    Search("*.txt", "C:\\t");
    EXPECT_TRUE(Form().cmdSearch.Enabled);
    EXPECT_TRUE(Form().lstMain.Enabled);
    EXPECT_FALSE(Form().cmdStop.Visible);
    EXPECT_FALSE(Form().lblCurrentFolder.Visible);
    EXPECT_FALSE(Form().lblSearchFor.Visible);
    EXPECT_TRUE(Form().lblTotalSize.Visible);
    EXPECT_TRUE(Form().fraSelection.Visible);
    EXPECT_TRUE(Form().fraStandardAction.Visible);
    EXPECT_TRUE(Form().cmdDoVersionSort.Visible);
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "");
    EXPECT_EQ(Form().Focus, &Form().cmbSearchFor);
    for (const fields::MenuEntry* entry :
         {&Form().mnuRun, &Form().mnuActions, &Form().mnuTools_CreateMPLfromCombo,
          &Form().mnuTools_NameVersionSort, &Form().mnuTools_RemoveUnAndMove,
          &Form().mnuTools_BypassMPL, &Form().mnuTools_NewSearchFor}) {
        EXPECT_TRUE(entry->Enabled) << entry->Name();
    }
    for (const fields::Label* label :
         {&Form().lblNumOfFilesFound, &Form().lblNumOfFilesSelected, &Form().lblNumOfDirsAttrib,
          &Form().lblNumOfFilesAttrib, &Form().lblNumOfDirsFound, &Form().lblNumOfDirsSelected,
          &Form().lblTotalSize, &Form().lblGroups}) {
        EXPECT_EQ(label->ForeColor.Get(), 0xFF0000U) << label->Name();
    }
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "6");
    EXPECT_EQ(Form().lblGroups.Caption.Get(), "1");
}

TEST_F(Request, FolderContentsCanBeDeletedWithoutSubfoldersOrForFolders) {
    Start();
    Search("*", "C:\\t");
    EXPECT_TRUE(Form().mnuTools_DeleteFolderContentsOnly.Enabled);
    WithSubfolders();
    Click(Form().cmdSearch);
    EXPECT_FALSE(Form().mnuTools_DeleteFolderContentsOnly.Enabled);
    Choose(Form().optFilesVsDirs, 3);
    Click(Form().cmdSearch);
    EXPECT_TRUE(Form().mnuTools_DeleteFolderContentsOnly.Enabled);
}

TEST_F(Request, ASecondSearchReplacesTheRows) {
    Start();
    Search("a.*", "C:\\t");
    Search("b.*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("b.txt"));
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "1");
}

TEST_F(Request, FindingNothingIsANormalEnd) {
    Start();
    Search("*.nothing", "C:\\t");
    EXPECT_TRUE(Told().empty());
    EXPECT_TRUE(HasEntry(LogText(), " Normal end to search"));
}

TEST_F(Request, AStopEndsTheWalkAtTheNextObjectAndKeepsTheRows) {
    Start();
    WithSubfolders();
    WhenFound(2, [this] { Click(Form().cmdStop); });
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt"));
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Search stopped prematurely");
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "2");
    EXPECT_TRUE(Form().cmdSearch.Enabled);
    EXPECT_TRUE(Form().lstMain.Enabled);
    EXPECT_FALSE(Form().cmdStop.Visible);
    EXPECT_TRUE(Form().lblTotalSize.Visible);
    EXPECT_TRUE(Form().fraSelection.Visible);
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " User selected to stop search."));
    EXPECT_EQ(log.find("Normal end"), std::string::npos);
}

TEST_F(Request, AStoppedSearchSaysSoThoughItsRowsAreGrouped) {
    Start();
    Set(Form().chkFastSort, "0");
    WhenFound(2, [this] { Click(Form().cmdStop); });
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Search stopped prematurely");
}

TEST_F(Request, AStopAtAnyYieldLeavesTheFormIdle) {
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 2);
    const auto before = S().yielder.Count();
    Search("*", "C:\\t");
    const auto yields = S().yielder.Count() - before;
    const auto all = program.Rows().Count();
    for (std::uint64_t n = 1; n <= yields; ++n) {
        bool stopped = false;
        S().yielder.After(n, [&] {
            stopped = Form().cmdStop.Visible;
            search::cmdStop_Click(S());
        });
        Click(Form().cmdSearch);
        EXPECT_TRUE(Form().cmdSearch.Enabled) << n;
        EXPECT_FALSE(Form().cmdStop.Visible) << n;
        EXPECT_LE(program.Rows().Count(), all) << n;
        EXPECT_FALSE(State().blnSearching) << n;
    }
}

TEST_F(Request, AStopDuringTheFolderListEndsTheSearch) {
    Start();
    WithSubfolders();
    When(
        [this] {
            return Form().lblCurrentFolder.Caption.Get().starts_with(
                "Building list of folders with - ");
        },
        [this] { Click(Form().cmdStop); });
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt")) << "the root was walked before";
}

TEST_F(Request, ASkipEndsTheSearchAndSaysSoInTheLog) {
    Start();
    WithSubfolders();
    WhenFound(2, [this] { search::cmdNext_Click(S()); });
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt"));
    EXPECT_FALSE(Form().lblTotalSize.Visible) << "left as it is";
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " User selected to skip to next automated search."));
    EXPECT_EQ(log.find("Normal end"), std::string::npos);
}

TEST_F(Request, AStopIsForgottenByTheNextSearch) {
    Start();
    WhenFound(1, [this] { Click(Form().cmdStop); });
    Search("*.txt", "C:\\t");
    Click(Form().cmdSearch);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt"));
}

TEST_F(Request, NoSecondWalkStartsWhileOneRuns) {
    Start();
    WhenFound(1, [this] {
        search::cmdSearch_Click(S());
        EXPECT_EQ(State().lngFilesFound, 1);
    });
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "c.txt"));
}

TEST_F(Request, ABatchShowsItsFileAndTheWayToTheNextSearch) {
    Start();
    State().blnAutoMove = true;
    State().strBatchFile = "C:\\lists\\s.txt";
    State().blnBatchDeleteEmpty = true;
    bool seen = false;
    WhenFound(1, [&] {
        seen = true;
        EXPECT_TRUE(Form().cmdNext.Visible);
        EXPECT_FALSE(Form().chkNot.Visible);
        EXPECT_EQ(Form().lblDetailedStatus.ForeColor.Get(), 65280U);
        EXPECT_EQ(Form().lblDetailedStatus.Caption.Get(),
                  "**** - Automated Move - **** Search file: C:\\lists\\s.txt   Delete empty "
                  "folders = True");
    });
    Search("*.txt", "C:\\t");
    EXPECT_TRUE(seen);
    EXPECT_FALSE(Form().cmdNext.Visible);
}

TEST_F(Request, APlaylistBatchShowsItsFile) {
    Start();
    State().blnAutoPlayList = true;
    State().strBatchFile = "C:\\lists\\s.txt";
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Form().lblDetailedStatus.Caption.Get(),
              "**** - Automated PlayList Generation - **** Search file: C:\\lists\\s.txt");
}

TEST_F(Request, ABatchSelectsAllAndRunsItsAction) {
    Start();
    int moves = 0;
    S().events.On("frmSearch.cmdMoveSelected_Click",
                  [&](session::Session&, const session::EventArgs&) {
                      ++moves;
                      EXPECT_EQ(program.Selection().lngSelTop, 2);
                  });
    State().blnAutoMove = State().blnRedoAfterAction = State().blnRedoNow = true;
    Search("*.txt", "C:\\t");
    EXPECT_EQ(moves, 1);
    EXPECT_FALSE(State().blnRedoAfterAction);
    EXPECT_FALSE(State().blnRedoNow);
}

TEST_F(Request, ANormalSearchEndsWithNothingSelected) {
    Start();
    Search("*.txt", "C:\\t");
    EXPECT_EQ(program.Selection().lngSelTop, -1);
    EXPECT_EQ(Form().lblNumOfFilesSelected.Caption.Get(), "0");
    EXPECT_EQ(Form().lblTotalSize.Caption.Get(), "00,000,000,000");
}

} // namespace
} // namespace tarvix::testing
