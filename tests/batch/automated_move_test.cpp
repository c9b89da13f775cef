#include "platform/object_facts.h"
#include "session/user_input.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <functional>
#include <utility>

namespace tarvix {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::string_view kDone = "Automated move is complete.";
constexpr std::string_view kDoneWithErrors =
    "Automated move is complete, but there were errors. View current action log.";
constexpr std::string_view kStopped = "Automated move stopped by user.";

// Two lists in C:\lists, music in C:\in, and a user who answers the questions of a batch.
class AutomatedMove : public testing::ProgramFixture {
  protected:
    void SetUp() override {
        for (const std::string name : {"a.mp3", "b.mp3", "c.flac", "d.ogg"}) {
            Disk().AddFile("C:\\in\\" + name, name);
        }
        Start();
        LookForAllAttributes();
        Set(Form().cmbDir, "C:\\in");
    }
    void Lists(std::string_view searches, std::string_view destinations) {
        Disk().AddFile("C:\\lists\\s.txt", searches);
        Disk().AddFile("C:\\lists\\d.txt", destinations);
    }
    void Run(const std::vector<std::string>& answers) {
        for (const std::string& answer : answers) {
            prompts.Queue(answer);
        }
        Click(Form().mnuTools_AutomatedMove);
    }
    // A run that asks for nothing but the lists and what to do with duplicates.
    void RunPlain(const std::string& duplicates = "S") {
        Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", duplicates, "N", "Yes", "OK"});
    }
    // Does it when the first folder of the next search is opened.
    void AtTheNextSearch(std::function<void()> act) {
        machine.faults.ResetCounts();
        machine.faults.BeforeCall("Open", 1, std::move(act));
    }
    std::string LastTold() { return Told().empty() ? std::string() : Told().back(); }
};

TEST_F(AutomatedMove, EachLineGoesToTheFolderOfTheSameLine) {
    Lists("*.mp3\r\n*.flac\r\n*EOF", "C:\\out\\one\r\nC:\\out\\two\r\n*EOF");
    RunPlain();
    EXPECT_EQ(Disk().Content("C:\\out\\one\\a.mp3"), "a.mp3");
    EXPECT_EQ(Disk().Content("C:\\out\\one\\b.mp3"), "b.mp3");
    EXPECT_EQ(Disk().Content("C:\\out\\two\\c.flac"), "c.flac");
    EXPECT_FALSE(Disk().Exists("C:\\in\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\d.ogg"));
    EXPECT_EQ(LastTold(), kDone);
}

TEST_F(AutomatedMove, TheRunIsLogged) {
    Lists("*.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    RunPlain();
    const std::string log = LogText();
    for (const char* entry : {" User selected to do a batch search and move.",
                              " User selected to use this search list file C:\\lists\\s.txt",
                              " User selected to use this destination list file C:\\lists\\d.txt",
                              " User selected to skip all duplicates for all search and moves."}) {
        EXPECT_TRUE(HasEntry(log, entry)) << entry << "\nin\n" << log;
    }
}

TEST_F(AutomatedMove, NativeDestinationsAreTaken) {
    Lists("*.mp3\n*EOF", "/home/ann/Sorted\n*EOF");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Sorted\\a.mp3"));
}

TEST_F(AutomatedMove, NothingIsSearchedWhereTheMarkStandsFirst) {
    Lists("*EOF\r\n*.mp3", "*EOF");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
    EXPECT_EQ(LastTold(), kDone);
}

TEST_F(AutomatedMove, LinesBehindTheMarkAreNeverRead) {
    Lists("*.mp3\r\n*EOF\r\n*.flac", "C:\\out\r\n*EOF");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\out\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\c.flac"));
}

TEST_F(AutomatedMove, ARepeatedListStartsOverAndItsMarkIsAStepThatIsSkipped) {
    Lists("a.*\r\nb.*\r\nc.*\r\n*EOF", "C:\\out\r\n*REPEAT");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\out\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\b.mp3")); // its step read the mark
    EXPECT_TRUE(Disk().Exists("C:\\out\\c.flac"));
    EXPECT_EQ(LastTold(), kDoneWithErrors);
    EXPECT_THAT(LogText(), HasSubstr("*REPEAT is not a full path of a folder.\r\n"
                                     "This search step skipped."));
}

TEST_F(AutomatedMove, ListsOfDifferentLengthAreRefused) {
    Lists("*.mp3\r\n*EOF", "C:\\one\r\nC:\\two\r\n*EOF");
    Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", "S", "OK"});
    EXPECT_EQ(LastTold(), "Destination and search list files MUST match in length! Start over.");
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
}

TEST_F(AutomatedMove, AMissingMarkIsAddedWhenTheUserWantsIt) {
    Lists("*.mp3", "C:\\out\r\n");
    Run({"OK", "C:\\lists\\s.txt", "OK", "C:\\lists\\d.txt", "OK", "S", "N", "Yes", "OK"});
    EXPECT_THAT(Told(), Contains("In the selected Search File: \r\n\r\nC:\\lists\\s.txt\r\n\r\n"
                                 "There is no 'End of File' mark.(*EOF)\r\n\r\n"
                                 "Would you like it added, before continuing, or cancel?"));
    EXPECT_EQ(Disk().Content("C:\\lists\\s.txt"), "*.mp3\r\n*EOF");
    EXPECT_EQ(Disk().Content("C:\\lists\\d.txt"), "C:\\out\r\n*EOF");
    EXPECT_TRUE(Disk().Exists("C:\\out\\a.mp3"));
    EXPECT_TRUE(HasEntry(LogText(), " Search file: C:\\lists\\s.txt was opened, it did not have "
                                    "*EOF.\r\nAdded *EOF mark for immediate usage."));
}

TEST_F(AutomatedMove, WithoutTheMarkTheUserMayCancel) {
    Lists("*.mp3", "C:\\out\r\n*EOF");
    Run({"OK", "C:\\lists\\s.txt", "Cancel"});
    EXPECT_EQ(Disk().Content("C:\\lists\\s.txt"), "*.mp3");
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
}

TEST_F(AutomatedMove, AnswersToDuplicatesGoByTheirFirstCharacter) {
    Lists("*.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    Disk().AddFile("C:\\out\\a.mp3", "older");
    RunPlain("rename them");
    EXPECT_EQ(Disk().Content("C:\\out\\a.mp3"), "older");
    EXPECT_EQ(Disk().Content("C:\\out\\a_.mp3"), "a.mp3");
    EXPECT_EQ(LastTold(), kDone);
}

TEST_F(AutomatedMove, SkippedDuplicatesStayAndAreNoErrors) {
    Lists("*.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    Disk().AddFile("C:\\out\\a.mp3", "older");
    RunPlain("s");
    EXPECT_EQ(Disk().Content("C:\\in\\a.mp3"), "a.mp3");
    EXPECT_EQ(Disk().Content("C:\\out\\b.mp3"), "b.mp3");
    EXPECT_EQ(LastTold(), kDone);
}

TEST_F(AutomatedMove, AnyOtherAnswerToDuplicatesCancels) {
    Lists("*.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", "overwrite", "OK"});
    EXPECT_EQ(LastTold(), "Cancelled");
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
}

TEST_F(AutomatedMove, NoToTheLastQuestionMovesNothing) {
    Lists("*.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", "S", "N", "No"});
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
    EXPECT_TRUE(Form().cmdSearch.Enabled);
    EXPECT_TRUE(Form().mnuOptions.Enabled);
}

TEST_F(AutomatedMove, AStepIntoAFileIsSkippedAndTheRestGoesOn) {
    Lists("*.mp3\r\n*.flac\r\n*EOF", "C:\\in\\d.ogg\r\nC:\\out\r\n*EOF");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\out\\c.flac"));
    EXPECT_EQ(LastTold(), kDoneWithErrors);
}

TEST_F(AutomatedMove, ASearchThatFindsNothingIsNoError) {
    Lists("nothing\r\n*.flac\r\n*EOF", "C:\\one\r\nC:\\two\r\n*EOF");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\two\\c.flac"));
    EXPECT_EQ(LastTold(), kDone);
}

TEST_F(AutomatedMove, AHiddenFileIsOnlyCopiedAndThatIsNoSuccess) {
    Disk().AddFile("C:\\in\\secret.ogg", "hidden");
    ASSERT_TRUE(Disk().SetAttributes("C:\\in\\secret.ogg", platform::kHidden));
    Lists("secret*\r\n*EOF", "C:\\out\r\n*EOF");
    RunPlain();
    EXPECT_EQ(Disk().Content("C:\\in\\secret.ogg"), "hidden");
    EXPECT_EQ(Disk().Content("C:\\out\\secret.ogg"), "hidden");
    EXPECT_EQ(LastTold(), kDoneWithErrors);
}

TEST_F(AutomatedMove, FoldersFirstThenFilesByTheSameLists) {
    Disk().AddFolder("C:\\in\\a folder");
    Lists("a*\r\nb*\r\n*EOF", "C:\\one\r\nC:\\two\r\n*EOF");
    Choose(Form().optFilesVsDirs, 3);
    Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", "S", "Yes please", "N", "Yes", "OK"});
    EXPECT_TRUE(Disk().Exists("C:\\one\\a folder"));
    EXPECT_TRUE(Disk().Exists("C:\\one\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\two\\b.mp3"));
    EXPECT_EQ(Form().optFilesVsDirs.Chosen(), 0);
}

TEST_F(AutomatedMove, EmptiedFoldersGoLevelByLevel) {
    Disk().AddFile("C:\\in\\x\\y\\deep.mp3", "deep");
    WithSubfolders();
    Lists("deep.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", "S", "y", "Yes", "OK"});
    EXPECT_TRUE(Disk().Exists("C:\\out\\deep.mp3"));
    EXPECT_FALSE(Disk().Exists("C:\\in\\x"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
    EXPECT_EQ(LastTold(), kDone);
    EXPECT_TRUE(
        HasEntry(LogText(), " All empty folders, matching search criteria, have been deleted."));
}

TEST_F(AutomatedMove, SearchTextsThatOverlapAreNoQuestion) {
    Lists("a|b\r\n*EOF", "C:\\out\r\n*EOF");
    RunPlain();
    EXPECT_THAT(Told(), Not(Contains(HasSubstr("mutually exclusive"))));
    EXPECT_TRUE(Disk().Exists("C:\\out\\a.mp3"));
}

TEST_F(AutomatedMove, AStopEndsTheRunAndMovesNothingMore) {
    Lists("*.mp3\r\n*.flac\r\n*EOF", "C:\\one\r\nC:\\two\r\n*EOF");
    machine.faults.BeforeCall("MoveFile", 1, [this] { State().blnStopAction = true; });
    RunPlain();
    EXPECT_FALSE(Disk().Exists("C:\\two\\c.flac"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\c.flac"));
    EXPECT_EQ(LastTold(), kStopped);
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

TEST_F(AutomatedMove, OfASearchThatIsStoppedNothingIsMoved) {
    Lists("*.mp3\r\n*EOF", "C:\\one\r\n*EOF");
    AtTheNextSearch([this] { S().Raise(Form().cmdStop, "Click"); });
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
    EXPECT_EQ(LastTold(), kStopped);
}

TEST_F(AutomatedMove, NextSkipsOneSearchAlone) {
    Lists("*.mp3\r\n*.flac\r\n*EOF\r\n", "C:\\one\r\nC:\\two\r\n*EOF");
    AtTheNextSearch([this] { Click(Form().cmdNext); });
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\two\\c.flac"));
}

TEST_F(AutomatedMove, NextInTheLastSearchReadsPastTheMark) {
    Lists("*.mp3\r\n*EOF", "C:\\one\r\n*EOF");
    AtTheNextSearch([this] { Click(Form().cmdNext); });
    RunPlain();
    EXPECT_THAT(Told(), Contains(HasSubstr("unexpected error 62")));
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

TEST_F(AutomatedMove, NextInTheLastSearchEndsQuietlyWhereMoreStandsBehindTheMark) {
    Lists("*.mp3\r\n*EOF\r\n*.flac\r\n", "C:\\one\r\n*EOF");
    AtTheNextSearch([this] { Click(Form().cmdNext); });
    RunPlain();
    EXPECT_EQ(LastTold(), kDone);
    EXPECT_TRUE(Disk().Exists("C:\\in\\c.flac"));
}

TEST_F(AutomatedMove, TheWindowIsLockedBetweenTheSteps) {
    Lists("*.mp3\r\n*EOF", "C:\\one\r\n*EOF");
    bool wasLocked = false;
    machine.faults.BeforeCall("MoveFile", 1, [&] {
        wasLocked = !Form().cmdSearch.Enabled && !Form().mnuOptions.Enabled;
    });
    RunPlain();
    EXPECT_TRUE(wasLocked);
    EXPECT_TRUE(Form().cmdSearch.Enabled);
    EXPECT_TRUE(Form().mnuOptions.Enabled);
}

TEST_F(AutomatedMove, AFolderThatCannotBeMadeSkipsItsStepAlone) {
    Lists("*.mp3\r\n*.flac\r\n*EOF", "C:\\no\\one\r\nC:\\two\r\n*EOF");
    machine.faults.FailPath("C:\\no", platform::kPermissionDenied, "CreateFolder");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\two\\c.flac"));
    EXPECT_EQ(LastTold(), kDoneWithErrors);
    EXPECT_THAT(LogText(), HasSubstr("Was unable to create destination folder C:\\no\\one\r\n"
                                     "This search step skipped."));
}

TEST_F(AutomatedMove, TheSecondRoundBeginsWithTheFirstLineOfARepeatedList) {
    Disk().AddFolder("C:\\in\\a folder");
    Lists("a*\r\n*EOF", "C:\\one\r\nC:\\two\r\n*REPEAT");
    Choose(Form().optFilesVsDirs, 3);
    Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", "S", "y", "N", "Yes", "OK"});
    EXPECT_TRUE(Disk().Exists("C:\\one\\a folder"));
    EXPECT_TRUE(Disk().Exists("C:\\one\\a.mp3"));
    EXPECT_FALSE(Disk().Exists("C:\\two"));
}

TEST_F(AutomatedMove, SixteenSearchesGoToFourFoldersInTurn) {
    std::string searches;
    for (char letter = 'a'; letter < 'q'; ++letter) {
        const std::string name = std::string(1, letter) + ".txt";
        Disk().AddFile("C:\\in\\" + name, name);
        searches += name + "\r\n";
    }
    Lists(searches + "*EOF", "C:\\1\r\nC:\\2\r\nC:\\3\r\nC:\\4\r\n*REPEAT");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\1\\a.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\4\\d.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\e.txt")); // the fifth step reads the mark
    EXPECT_TRUE(Disk().Exists("C:\\1\\f.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\o.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\1\\p.txt"));
    EXPECT_EQ(LastTold(), kDoneWithErrors);
}

TEST_F(AutomatedMove, TheStopButtonShowsAndActsWhileObjectsAreMoved) {
    Lists("*.mp3\r\n*.flac\r\n*EOF", "C:\\one\r\nC:\\two\r\n*EOF");
    bool wasVisible = false;
    machine.faults.BeforeCall("MoveFile", 1, [&] {
        wasVisible = Form().cmdStop.Visible;
        Click(Form().cmdStop);
    });
    RunPlain();
    EXPECT_TRUE(wasVisible);
    EXPECT_TRUE(Disk().Exists("C:\\in\\b.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\c.flac"));
    EXPECT_EQ(LastTold(), kStopped);
    EXPECT_FALSE(Form().cmdStop.Visible);
}

TEST_F(AutomatedMove, TheLineUnderWorkIsShown) {
    Lists("*.mp3\r\n*.flac\r\n*EOF", "C:\\one\r\nC:\\two\r\n*EOF");
    std::string shown;
    machine.faults.BeforeCall("MoveFile", 3, [&] { shown = Form().lblBatch.Caption.Get(); });
    RunPlain();
    EXPECT_EQ(shown, "Moving line 2 of 2: *.flac \u2192 C:\\two");
    EXPECT_EQ(Form().lblBatch.Caption.Get(), "");
}

TEST_F(AutomatedMove, AStepWhoseSearchCouldNotReadAFolderIsNoSuccess) {
    Disk().AddFile("C:\\in\\closed\\e.mp3", "e");
    WithSubfolders();
    Lists("*.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    machine.faults.FailPath("C:\\in\\closed", platform::kPermissionDenied, "Open");
    RunPlain();
    EXPECT_TRUE(Disk().Exists("C:\\out\\a.mp3"));
    EXPECT_EQ(LastTold(), kDoneWithErrors);
}

TEST_F(AutomatedMove, EmptyFoldersThatStayAreNoSuccess) {
    Disk().AddFolder("C:\\in\\x");
    WithSubfolders();
    Lists("*.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    machine.faults.FailPath("C:\\in\\x", platform::kPermissionDenied);
    Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", "S", "y", "Yes", "OK"});
    EXPECT_TRUE(Disk().Exists("C:\\in\\x"));
    EXPECT_EQ(LastTold(), kDoneWithErrors);
}

TEST_F(AutomatedMove, AnEarlierChoiceOfPlacesIsNoPartOfIt) {
    S().frmDialog.optTo.Choose(3);
    S().frmDialog.optStructure.Choose(1);
    Lists("*.mp3\r\n*EOF", "C:\\out\r\n*EOF");
    RunPlain();
    EXPECT_EQ(Disk().Content("C:\\out\\a.mp3"), "a.mp3");
}

TEST_F(AutomatedMove, AListThatCannotBeReadIsToldAndNothingIsDone) {
    Lists("*.mp3\r\n*EOF", "C:\\one\r\n*EOF");
    machine.faults.FailPath("C:\\lists\\d.txt", platform::kPermissionDenied, "OpenAsTextStream");
    Run({"OK", "C:\\lists\\s.txt", "C:\\lists\\d.txt", "OK"});
    EXPECT_THAT(LastTold(), HasSubstr("unexpected error 70"));
    EXPECT_TRUE(Disk().Exists("C:\\in\\a.mp3"));
}

} // namespace
} // namespace tarvix
