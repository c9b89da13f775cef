#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// The options window by script, as a user of tarvix-cli drives it.
class OptionsWindowTest : public Trees {
  protected:
    std::string Option(const std::string& key) { return Run({"options", "get", key}).out; }
};

TEST_F(OptionsWindowTest, WhatAScriptSetsIsThereForTheNextRun) {
    const Outcome outcome = RunScript("click mnuOptions\n"
                                      "dump tbsOptions\n"
                                      "set chkFastSearch = 1\n"
                                      "set txtDefTime = 20\n"
                                      "set optSortBy(2) = 1\n"
                                      "set chkList(10) = 1\n"
                                      "set txtEditor = kate -b\n"
                                      "set optDefSearchFolder(3) = 1\n"
                                      "set txtDefFolder = ~/Music\n"
                                      "set txtDefFolderTitle = Mine\n"
                                      "click cmdApply\n"
                                      "set txtDefTime = 30\n"
                                      "click cmdCancel\n"
                                      "dump frmOptions.txtDefTime\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("General"));
    EXPECT_EQ(Option("blnListDupsWhenSearchStringsNotExclusive"), "True\n");
    EXPECT_EQ(Option("sngDefWebSeconds"), "20\n");
    EXPECT_EQ(Option("bytSortBy"), "2\n");
    EXPECT_EQ(Option("blnListItems (AttributesSubItem)"), "True\n");
    EXPECT_EQ(Option("Editor"), "kate -b\n");
    EXPECT_THAT(Option("strDefSearchFolder(3)"), HasSubstr("\\Music[Mine\n"));
    const Outcome next = RunScript("click mnuOptions\ndump txtDefTime\ndump txtEditor\n"
                                   "dump optSortBy(2)\nclick cmdCancel\n");
    EXPECT_EQ(next.out, "20\nkate -b\n1\n") << next.err;
}

TEST_F(OptionsWindowTest, ARefusedValueIsToldAndNothingIsSaved) {
    const Outcome outcome = RunScript("click mnuOptions\n"
                                      "set chkFastSearch = 1\n"
                                      "set txtDefTime = 656\n"
                                      "answer OK\n"
                                      "click cmdOK\n"
                                      "dump tbsOptions\n"
                                      "dump prompts\n"
                                      "click cmdCancel\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("Web\\n\n"));
    EXPECT_THAT(outcome.out, HasSubstr("Default time for web pages must be no less than 1 and no "
                                       "more than 655."));
    EXPECT_EQ(Option("blnListDupsWhenSearchStringsNotExclusive"), "False\n");
}

TEST_F(OptionsWindowTest, TheFormOfPathsCountsAtOnce) {
    AddFile("d/a.txt");
    const std::string folder = (Root() / "d").string();
    const Outcome outcome = RunScript("set cmbSearchFor = *.txt\nset cmbDir = " + folder +
                                      "\nclick cmdSearch\n"
                                      "dump lstMain PathSubItem\n"
                                      "click mnuOptions\n"
                                      "set cmbPathForm = drive\n"
                                      "click cmdOK\n"
                                      "dump lstMain PathSubItem\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("\n" + folder + "\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\nC:\\"));
}

TEST_F(OptionsWindowTest, AVariableIsMarkedByItsName) {
    const Outcome outcome = RunScript("click mnuOptions\n"
                                      "set frmOptions.lstMain = SystemRoot\n"
                                      "dump frmOptions.lstMain\n"
                                      "click cmdOK\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "SystemRoot\\n\n");
    EXPECT_THAT(ReadAll(DataFolder() / "TXOptionFile.txt"), HasSubstr("Include SystemRoot "));
}

TEST_F(OptionsWindowTest, WhatCountsForOneRunLeavesNoTrace) {
    (void)RunScript("click mnuOptions\nclick cmdOK\n");
    const std::string before = ReadAll(DataFolder() / "TXOptionFile.txt");
    const Outcome outcome = RunScript("click mnuOptions\n"
                                      "set chkAllowMove = 1\n"
                                      "set chkAllowOverwrite = 1\n"
                                      "set chkAllowDelete = 1\n"
                                      "set chkAllowAutoModeSystemHidden = 1\n"
                                      "set chkAutoPara(1) = 1\n"
                                      "click cmdOK\n"
                                      "click mnuOptions\n"
                                      "dump chkAllowMove\n"
                                      "click cmdCancel\n");
    EXPECT_EQ(outcome.out, "1\n") << outcome.err;
    EXPECT_EQ(ReadAll(DataFolder() / "TXOptionFile.txt"), before);
    const Outcome next = RunScript("click mnuOptions\ndump chkAllowMove\nclick cmdCancel\n");
    EXPECT_EQ(next.out, "0\n");
}

TEST_F(OptionsWindowTest, HiddenObjectsAreMovedWhereThatIsAllowed) {
    AddFile("from/.hidden.txt", "mine");
    AddFolder("to");
    const std::string root = Root().string();
    const Outcome outcome = RunScript("click mnuOptions\nset chkAllowMove = 1\nclick cmdOK\n"
                                      "set chkHidden = 2\n"
                                      "set cmbSearchFor = *.txt\nset cmbDir = " +
                                      root +
                                      "/from\n"
                                      "click cmdSearch\nclick cmdSelectAll\n"
                                      "click cmdMoveSelected\nset cmbDir = " +
                                      root + "/to\nanswer OK\nclick OKButton\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_FALSE(fs::exists(Root() / "from/.hidden.txt"));
    EXPECT_EQ(ReadAll(Root() / "to/.hidden.txt"), "mine");
}

TEST_F(OptionsWindowTest, ADisabledOptionRefusesAScript) {
    const Outcome outcome = RunScript("click mnuOptions\nset chkErrorLog = 0\n");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.err, HasSubstr("frmOptions.chkErrorLog is disabled."));
    EXPECT_THAT(outcome.out, Not(HasSubstr("chkErrorLog")));
}

TEST_F(OptionsWindowTest, AScriptSetsAnOptionBack) {
    const Outcome outcome = RunScript("click mnuOptions_Open\n"
                                      "set frmOptions.chkDesc = 1\n"
                                      "reset frmOptions.chkDesc\n"
                                      "dump frmOptions.chkDesc\n"
                                      "click frmOptions.cmdOK\n");
    EXPECT_EQ(outcome.out, "0\n") << outcome.err;
    EXPECT_THAT(RunScript("click mnuOptions_Open\nreset frmOptions.cmdOK\n").err,
                HasSubstr("frmOptions.cmdOK can't be set back: it is no option."));
    EXPECT_EQ(RunScript("reset cmbDir\n").exitCode, 2);
    EXPECT_EQ(RunScript("reset\n").exitCode, 2);
}

} // namespace
} // namespace tarvix::endtoend
