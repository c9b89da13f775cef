#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarvix::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ScriptRunnerTest : public CliFixture {
  protected:
    ScriptRunnerTest() {
        Disk().AddFile("C:\\home\\ann\\Music\\a.mp3", "12345");
        Disk().AddFile("C:\\home\\ann\\Music\\b.mp3", "678");
        Disk().AddFile("C:\\home\\ann\\Music\\c.jpg", "");
    }

    std::string LogFile() const {
        return machine.environment.programFolder + "\\TXAction 11.15.26 19.54.52.log";
    }

    // Statements that leave the three files in the list.
    const std::string kFind = "set chkFastSort = 1\n"
                              "set cmbSearchFor = *\n"
                              "set cmbDir = /home/ann/Music\n"
                              "click cmdSearch\n";
};

TEST_F(ScriptRunnerTest, SearchesAndDumpsTheListUnderItsHeads) {
    EXPECT_EQ(RunScript(kFind + "dump lstMain Name SizeSubItem\n"), kDone) << Err();
    EXPECT_EQ(Out(), "Name\tSize\n"
                     "a.mp3\t000,000,000,005\n"
                     "b.mp3\t000,000,000,003\n"
                     "c.jpg\t000,000,000,000\n");
}

TEST_F(ScriptRunnerTest, ASpacerIsAnEmptyLine) {
    const std::string script = "set chkFastSort = 0\nset cmbSearchFor = *\n"
                               "set cmbDir = /home/ann/Music\nclick cmdSearch\n"
                               "dump lstMain Name\ndump lblGroups\n";
    EXPECT_EQ(RunScript(script), kDone) << Err();
    EXPECT_EQ(Out(), "Name\na.mp3\n\nb.mp3\n\nc.jpg\n3\n");
}

TEST_F(ScriptRunnerTest, DumpsControlsByForm) {
    EXPECT_EQ(RunScript(kFind + "dump lblNumOfFilesFound\ndump frmDialog.chkAsk\n"
                                "dump optFilesVsDirs(0)\n"),
              kDone);
    EXPECT_EQ(Out(), "3\n1\n1\n");
}

TEST_F(ScriptRunnerTest, SelectsRowsByNumberAndByName) {
    EXPECT_EQ(RunScript(kFind + "select 1 3\ndump lblNumOfFilesSelected\n"
                                "select like *.MP3\ndump lblTotalSize\n"
                                "select none\ndump lblNumOfFilesSelected\n"),
              kDone)
        << Err();
    EXPECT_EQ(Out(), "2\n8\n0\n");
}

TEST_F(ScriptRunnerTest, ARowThatIsNotThereIsAnError) {
    EXPECT_EQ(RunScript(kFind + "select 4\n"), kBadRequest);
    EXPECT_EQ(Err(), "tarvix-cli: line 5: There is no row 4: the list has 3.\n");
}

TEST_F(ScriptRunnerTest, SetRaisesTheEventsOfAUser) {
    EXPECT_EQ(RunScript("set chkSize = 1\nset cboSize = Range\nset txtSize2 = 9\n"
                        "dump txtSize2\n"),
              kDone)
        << Err();
    EXPECT_EQ(Out(), "9\n");
}

TEST_F(ScriptRunnerTest, AHiddenControlIsAnError) {
    EXPECT_EQ(RunScript("set txtSize1 = 9\n"), kBadRequest);
    EXPECT_EQ(Err(), "tarvix-cli: line 1: frmSearch.txtSize1 is hidden.\n");
    EXPECT_EQ(RunScript("click cmdStop\n"), kBadRequest);
    EXPECT_EQ(Err(), "tarvix-cli: line 1: frmSearch.cmdStop is hidden.\n");
}

TEST_F(ScriptRunnerTest, AnUnknownControlGetsTheNearestName) {
    EXPECT_EQ(RunScript("\nset cmbDri = x\n"), kBadRequest);
    EXPECT_EQ(Err(), "tarvix-cli: line 2: frmSearch has no control \"cmbDri\". "
                     "Did you mean \"cmbDir\"?\n");
    EXPECT_EQ(RunScript("click frmDialgo.OKButton\n"), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("There is no form \"frmDialgo\". Did you mean \"frmDialog\"?"));
    EXPECT_EQ(RunScript("click OKButton\n"), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("frmDialog has one: write frmDialog.OKButton."));
}

TEST_F(ScriptRunnerTest, AFormThatIsNotOpenCannotBeUsed) {
    EXPECT_EQ(RunScript("set frmDialog.cmbDir = C:\\tmp\n"), kBadRequest);
    EXPECT_THAT(Err(), EndsWith("frmDialog isn't open.\n"));
}

TEST_F(ScriptRunnerTest, AFormBehindAModalOneCannotBeUsed) {
    EXPECT_EQ(RunScript(kFind + "click cmdSelectAll\nclick cmdCopySelected\n"
                                "click frmSearch.cmdSearch\n"),
              kBadRequest);
    EXPECT_THAT(Err(), EndsWith("frmDialog is open in front of it.\n"));
}

TEST_F(ScriptRunnerTest, NothingIsDoneWhenAnyStatementIsMiswritten) {
    EXPECT_EQ(RunScript(kFind + "clik cmdSelectAll\n"), kBadRequest);
    EXPECT_THAT(Err(), StartsWith("tarvix-cli: line 5: There is no statement \"clik\"."));
    EXPECT_TRUE(Disk().Calls().made.empty());
}

TEST_F(ScriptRunnerTest, GoesOnInsideTheActionWindow) {
    EXPECT_EQ(RunScript(kFind + "select like *.mp3\n"
                                "click cmdCopySelected\n"
                                "set cmbDir = /tmp/out\n"
                                "answer OK\n"
                                "click OKButton\n"
                                "dump lblStatus\n"
                                "dump prompts\n"),
              kDone)
        << Err();
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\out\\b.mp3"));
    EXPECT_FALSE(Disk().Exists("C:\\tmp\\out\\c.jpg"));
    EXPECT_THAT(Out(), HasSubstr("frmDialog\tAction Form\tCopy Files or Folders to:\t"));
    EXPECT_THAT(Out(), HasSubstr("65\tTarvix\tAre you sure you want to Copy Files or Folders to: "
                                 "C:\\tmp\\out using folder structure - None ?\tOK\n"));
}

TEST_F(ScriptRunnerTest, ADuplicateThatIsSkippedAsAskedIsNoFailure) {
    Disk().AddFile("C:\\tmp\\out\\a.mp3", "older");
    EXPECT_EQ(RunScript(kFind + "select like *.mp3\nclick cmdCopySelected\n"
                                "set chkSkipAll = 1\nset cmbDir = /tmp/out\nanswer OK\n"
                                "click OKButton\n"),
              kDone);
    EXPECT_EQ(Disk().Content("C:\\tmp\\out\\a.mp3"), "older");
}

TEST_F(ScriptRunnerTest, AFailedObjectGivesOne) {
    machine.faults.FailPath("C:\\home\\ann\\Music\\a.mp3", platform::kPermissionDenied, "CopyFile");
    EXPECT_EQ(RunScript(kFind + "select like *.mp3\nclick cmdCopySelected\n"
                                "set chkSkipAll = 1\nset cmbDir = /tmp/out\nanswer OK\n"
                                "answer Cancel\nclick OKButton\n"),
              kSomeFailed)
        << Err();
}

TEST_F(ScriptRunnerTest, AnUnansweredPromptEndsWithThreeAndTheLine) {
    EXPECT_EQ(RunScript(kFind + "click cmdSelectAll\nclick cmdCopySelected\n"
                                "set cmbDir = /tmp/out\nclick OKButton\nset cmbDir = /tmp/x\n"),
              kUnanswered);
    EXPECT_THAT(Err(), StartsWith("tarvix-cli: line 8: Are you sure you want to"));
    EXPECT_THAT(Err(), EndsWith("put answer OK or answer Cancel.\n"));
    EXPECT_FALSE(Disk().Exists("C:\\tmp\\out"));
}

TEST_F(ScriptRunnerTest, AFormStillOpenAtTheEndIsUnanswered) {
    EXPECT_EQ(RunScript(kFind + "click cmdSelectAll\nclick cmdCopySelected\n"), kUnanswered);
    EXPECT_THAT(Err(), HasSubstr("frmDialog"));
}

TEST_F(ScriptRunnerTest, AWrongAnswerIsAnErrorNamingTheButtons) {
    EXPECT_EQ(RunScript("set cmbSearchFor = a|b\nset cmbDir = /home/ann/Music\n"
                        "answer OK\nclick cmdSearch\n"),
              kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("line 4: "));
    EXPECT_THAT(Err(), HasSubstr("Its buttons are: Yes, No."));
}

TEST_F(ScriptRunnerTest, ADateAnswerFillsTheDateWindow) {
    EXPECT_EQ(RunScript("set chkDate = 1\nanswer 2026-01-02 thru 2026-02-03 04:05:06\n"
                        "set cboDate = Range\ndump lblDate1\ndump lblDate2\n"),
              kDone)
        << Err();
    EXPECT_EQ(Out(), "2026/01/02 00:00:00\n2026/02/03 04:05:06\n");
}

TEST_F(ScriptRunnerTest, AfterYieldsClicksDuringTheSearch) {
    for (int i = 0; i < 50; ++i)
        Disk().AddFile("C:\\home\\ann\\Music\\many\\" + std::to_string(i) + ".mp3");
    EXPECT_EQ(RunScript("set cmbSearchFor = *.mp3\nset cmbDir = /home/ann/Music\n"
                        "after 20 yields click cmdStop\nclick cmdSearch\ndump lstMain Name\n"),
              kDone)
        << Err();
    EXPECT_LT(std::ranges::count(Out(), '\n'), 50);
    EXPECT_THAT(machine.disk.Content(LogFile()).value_or(""),
                HasSubstr(" User selected to stop search."));
}

TEST_F(ScriptRunnerTest, AClickThatComesTooEarlyIsAnErrorOfItsLine) {
    EXPECT_EQ(RunScript("set cmbSearchFor = *\nset cmbDir = /home/ann/Music\n"
                        "after 3 yields click cmdNext\nclick cmdSearch\n"),
              kBadRequest);
    EXPECT_EQ(Err(), "tarvix-cli: line 3: frmSearch.cmdNext is hidden.\n");
}

TEST_F(ScriptRunnerTest, APlannedClickThatNeverCameIsForgottenAtTheEnd) {
    EXPECT_EQ(RunScript("after 1 yields click cmdStop\n"), kDone) << Err();
    EXPECT_EQ(Err(), "");
}

TEST_F(ScriptRunnerTest, LeadingAnswersAreThereBeforeTheStart) {
    ASSERT_TRUE(Disk().DeleteFile(HistoryFile(), true));
    EXPECT_EQ(RunScript("# first run\nanswer OK\nanswer Yes\nanswer No\ndump prompts\n"), kDone)
        << Err();
    EXPECT_THAT(Out(), HasSubstr("Would you like to see the General Information file?\tYes\n"));
    EXPECT_THAT(Out(), HasSubstr("Would you like to see the Advanced Functions file?\tNo\n"));
}

TEST_F(ScriptRunnerTest, TheFirstRunNoticeIsAnsweredByItself) {
    ASSERT_TRUE(Disk().DeleteFile(HistoryFile(), true));
    EXPECT_EQ(RunScript("dump prompts\n"), kDone);
    EXPECT_THAT(Out(), StartsWith("16\tTarvix\tWARNING - Using this program carelessly"));
    EXPECT_THAT(Out(), HasSubstr("!!!\\n\\nIt gives you the power"));
    EXPECT_THAT(Out(), HasSubstr("General Information file?\tNo\n"));
}

TEST_F(ScriptRunnerTest, TheErrorLogOfAQuietRunHasNoRecord) {
    EXPECT_EQ(RunScript("dump errorlog\n"), kDone);
    EXPECT_EQ(Out(), "Opened Error Log at 11/15/2026 7:54:52 PM\n\n");
}

TEST_F(ScriptRunnerTest, ADoubleClickNeedsItsRow) {
    EXPECT_EQ(RunScript(kFind + "doubleclick 9\n"), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("There is no row 9: the list has 3."));
}

TEST_F(ScriptRunnerTest, AColumnHeadSortsAndTurns) {
    EXPECT_EQ(RunScript(kFind + "column SizeSubItem\ndump lstMain Name\n"
                                "column SizeSubItem\ndump lstMain Name\n"),
              kDone)
        << Err();
    EXPECT_EQ(Out(), "Name\nc.jpg\nb.mp3\na.mp3\nName\na.mp3\nb.mp3\nc.jpg\n");
}

TEST_F(ScriptRunnerTest, AScriptFileThatCannotBeReadIsNamed) {
    EXPECT_EQ(Run({"run", "nope.txt"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("The script \"nope.txt\" can't be read: "));
}

TEST_F(ScriptRunnerTest, AScriptFileMayBeRelativeAndHaveDosLineEnds) {
    Disk().AddFile("C:\\home\\ann\\s.txt", "\xEF\xBB\xBF# x\r\ndump lblGroups\r\n");
    EXPECT_EQ(Run({"run", "s.txt"}), kDone) << Err();
    EXPECT_EQ(Out(), "1\n");
}

TEST_F(ScriptRunnerTest, AnEmptyScriptStartsAndUnloadsTheProgram) {
    EXPECT_EQ(RunScript(""), kDone);
    EXPECT_EQ(Out(), "");
}

TEST_F(ScriptRunnerTest, AnInterruptedSearchEndsTheScriptBeforeAnythingActsOnHalfAList) {
    for (int i = 0; i < 60; ++i)
        Disk().AddFile("C:\\home\\ann\\Music\\many\\" + std::to_string(i) + ".mp3");
    machine.clock.SetStep(20'000'000);
    // The start opens the data folder once.
    machine.faults.BeforeCall("Open", 4, [this] { interrupted = 15; });
    EXPECT_EQ(RunScript(kFind + "click cmdSelectAll\nanswer Yes\nclick cmdDeleteSelected\n"), 143);
    EXPECT_EQ(Err(), "tarvix-cli: line 4: The script was interrupted here. Nothing behind this "
                     "line is done.\n");
    EXPECT_EQ(machine.bin.Items().size(), 0U);
}

TEST_F(ScriptRunnerTest, AnInterruptionBeforeTheFirstStatementDoesNothing) {
    interrupted = 2;
    EXPECT_EQ(RunScript("dump lblGroups\n"), 130);
    EXPECT_EQ(Out(), "");
}

TEST_F(ScriptRunnerTest, AfterASignalPromptsAreAnsweredByTheUnattendedRule) {
    // The start opens the data folder once.
    machine.faults.BeforeCall("Open", 2, [this] { interrupted = 15; });
    machine.faults.FailPath(machine.environment.programFolder + "\\TXWriteTest.tmp", 61);
    EXPECT_EQ(RunScript(kFind), 143);
    EXPECT_THAT(Err(), HasSubstr("The data folder can't be written"));
    EXPECT_THAT(Err(), ::testing::Not(HasSubstr("This needs an answer")));
}

TEST_F(ScriptRunnerTest, TheActionLogCanBeDumped) {
    EXPECT_EQ(RunScript(kFind + "dump log\n"), kDone);
    EXPECT_THAT(Out(), HasSubstr("11/15/2026 19:54:52 User selected to search for files"));
}

} // namespace
} // namespace tarvix::cli
