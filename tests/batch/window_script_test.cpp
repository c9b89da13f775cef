#include "app/window_script.h"
#include "tests/support/program_fixture.h"

namespace tarvix {
namespace {

// A window whose user answers what a script leaves open.
class WindowScript : public testing::ProgramFixture {
  protected:
    void SetUp() override {
        Disk().AddFile("C:\\in\\a.mp3", "a");
        Disk().AddFile("C:\\in\\b.mp3", "b");
        app::AddScriptEvents(program);
        Start();
        LookForAllAttributes();
    }
    void RunScript(std::string_view script, const std::vector<std::string>& answers = {}) {
        Disk().AddFile("C:\\s.tarvix", script);
        prompts.Queue("C:\\s.tarvix");
        for (const std::string& answer : answers) {
            prompts.Queue(answer);
        }
        Click(Form().mnuFile_RunScript);
    }
    const std::string kFind = "set cmbSearchFor = *.mp3\nset cmbDir = C:\\in\nclick cmdSearch\n";
    const std::string kCopy = "click cmdSelectAll\nclick cmdCopySelected\n"
                              "set frmDialog.cmbDir = C:\\out\n";
};

TEST_F(WindowScript, DoesWhatTheScriptSays) {
    RunScript(kFind + kCopy + "answer OK\nclick frmDialog.OKButton\n");
    EXPECT_TRUE(Disk().Exists("C:\\out\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\out\\b.mp3"));
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "The script C:\\s.tarvix was run.");
    EXPECT_EQ(S().standIn, nullptr);
}

TEST_F(WindowScript, WhatItDoesNotAnswerIsTheUsers) {
    RunScript(kFind + kCopy + "click frmDialog.OKButton\n", {"OK"});
    EXPECT_TRUE(Disk().Exists("C:\\out\\a.mp3"));
    EXPECT_TRUE(WasTold("Are you sure"));
}

TEST_F(WindowScript, AWindowThatItLeavesOpenIsTheUsers) {
    RunScript(kFind + kCopy, {"CancelButton"});
    EXPECT_FALSE(Disk().Exists("C:\\out"));
    EXPECT_FALSE(S().frmDialog.IsShown());
}

TEST_F(WindowScript, AStatementThatCannotBeDoneEndsItAndIsTold) {
    RunScript("set cmbSearchFor = *.mp3\nclick cmdStop\nset cmbSearchFor = *.txt\n", {"OK"});
    EXPECT_TRUE(WasTold("The script ended at line 2: frmSearch.cmdStop is hidden."));
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "*.mp3");
}

TEST_F(WindowScript, AnAnswerThatIsNoneIsToldAndAskedOfTheUser) {
    RunScript(kFind + kCopy + "answer Perhaps\nclick frmDialog.OKButton\nset cmbSearchFor = x\n",
              {"OK", "OK"});
    EXPECT_TRUE(Disk().Exists("C:\\out\\a.mp3"));
    EXPECT_TRUE(WasTold("The prompt has no button \"Perhaps\""));
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "*.mp3");
}

TEST_F(WindowScript, AWrongScriptDoesNothing) {
    RunScript("set cmbSearchFor = *.mp3\njump\n", {"OK"});
    EXPECT_TRUE(WasTold("Nothing was done. Line 2 of the script: There is no statement \"jump\"."));
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "");
}

TEST_F(WindowScript, WhatItPrintsIsShown) {
    RunScript(kFind + "dump lblNumOfFilesFound\n", {"OK"});
    EXPECT_EQ(Told().back(), "2\n");
}

} // namespace
} // namespace tarvix
