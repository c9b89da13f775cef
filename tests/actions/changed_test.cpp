// What has changed between a search and an action stays as it is.

#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Changed : public ActionFixture {
  protected:
    Changed() {
        Disk().AddFile("C:\\t\\sub\\a.txt", "inside");
        Disk().AddFile("C:\\o\\a.txt", "outside");
        Disk().AddFolder("C:\\d");
    }
    // The folder gives way to a link that leads outside.
    void SwapFolder() {
        ASSERT_TRUE(Disk().MoveFolder("C:\\t\\sub", "C:\\away"));
        Disk().AddLink("C:\\t\\sub", "C:\\o");
    }
    // Another object stands where the file was.
    void TakeFileAway() { ASSERT_TRUE(Disk().MoveFile("C:\\t\\sub\\a.txt", "C:\\old.txt", {})); }
    void Exchange() {
        TakeFileAway();
        Disk().AddFile("C:\\t\\sub\\a.txt", "other");
    }
    void Delete(std::vector<std::string> answers = {"Yes"}) {
        for (std::string& answer : answers)
            prompts.Queue(std::move(answer));
        Click(Form().cmdDeleteSelected);
    }
    void Rename(std::vector<std::string> answers = {"OK"}) {
        Do(
            Form().cmdRenameSelected,
            [this](fields::FrmDialog& form) {
                Set(form.chkAdd, "1");
                Set(form.txtAdd, "x");
            },
            std::move(answers));
    }
    std::string Content(std::string_view path) { return Disk().Content(path).value_or("none"); }
    // Nothing was done, and this was said.
    void ExpectLeft() {
        ExpectTotals(0, 0, 1);
        ExpectLog({" C:\\t\\sub\\a.txt has changed since the search, and stays as it is."});
        EXPECT_EQ(Content("C:\\o\\a.txt"), "outside");
        EXPECT_THAT(machine.bin.Paths(), IsEmpty());
        EXPECT_FALSE(Disk().Exists("C:\\d\\a.txt"));
        EXPECT_THAT(Told(), Contains(HasSubstr("1 object has changed since the search, and was "
                                               "not ")));
    }
};

TEST_F(Changed, DeleteLeavesWhatLiesBehindALinkInAFoldersPlace) {
    Find();
    SwapFolder();
    Delete();
    ExpectLeft();
}

TEST_F(Changed, MoveLeavesWhatLiesBehindALinkInAFoldersPlace) {
    Find();
    SwapFolder();
    Move(To("C:\\d"));
    ExpectLeft();
}

TEST_F(Changed, CopyLeavesWhatLiesBehindALinkInAFoldersPlace) {
    Find();
    SwapFolder();
    Copy(To("C:\\d"));
    ExpectLeft();
}

TEST_F(Changed, RenameLeavesWhatLiesBehindALinkInAFoldersPlace) {
    Find();
    SwapFolder();
    Rename();
    ExpectLeft();
}

TEST_F(Changed, NotEvenYesLeadsThroughALink) {
    Find();
    SwapFolder();
    Delete({"Yes", "Yes"});
    ExpectLeft();
    EXPECT_EQ(Content("C:\\away\\a.txt"), "inside");
}

TEST_F(Changed, DeleteLeavesAFileThatWasExchanged) {
    Find();
    Exchange();
    Delete();
    ExpectLeft();
    EXPECT_EQ(Content("C:\\t\\sub\\a.txt"), "other");
}

TEST_F(Changed, MoveLeavesAFileThatWasExchanged) {
    Find();
    Exchange();
    Move(To("C:\\d"));
    ExpectLeft();
    EXPECT_EQ(Content("C:\\t\\sub\\a.txt"), "other");
}

TEST_F(Changed, CopyLeavesAFileThatWasExchanged) {
    Find();
    Exchange();
    Copy(To("C:\\d"));
    ExpectLeft();
}

TEST_F(Changed, RenameLeavesAFileThatWasExchanged) {
    Find();
    Exchange();
    Rename();
    ExpectLeft();
    EXPECT_EQ(Content("C:\\t\\sub\\a.txt"), "other");
}

TEST_F(Changed, AFileReplacedByALinkStays) {
    Find();
    TakeFileAway();
    Disk().AddLink("C:\\t\\sub\\a.txt", "C:\\o\\a.txt");
    Copy(To("C:\\d"));
    ExpectLeft();
}

TEST_F(Changed, AFileReplacedByASpecialFileStays) {
    Find();
    TakeFileAway();
    Disk().AddSpecial("C:\\t\\sub\\a.txt");
    Move(To("C:\\d"));
    ExpectLeft();
}

TEST_F(Changed, AFileExchangedBetweenTheLookAndTheMoveStays) {
    Find();
    machine.faults.BeforeCall("MoveFile", 1, [this] { Exchange(); });
    Move(To("C:\\d"));
    ExpectLeft();
    EXPECT_EQ(Content("C:\\t\\sub\\a.txt"), "other");
}

TEST_F(Changed, AFileExchangedBetweenTheQueueAndTheBinStays) {
    Find();
    machine.faults.BeforeCall("Recycle", 1, [this] { Exchange(); });
    Delete();
    ExpectLeft();
}

TEST_F(Changed, AnEmptyFileThatHasContentByNowStays) {
    Disk().AddFile("C:\\t\\sub\\a.txt", "");
    Find(1);
    Disk().Node("C:\\t\\sub\\a.txt")->content = "content";
    Disk().Node("C:\\t\\sub\\a.txt")->size = 7;
    Delete();
    ExpectLeft();
    Delete({"Yes", "Yes"});
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\sub\\a.txt"));
    ExpectTotals(1, 0, 0);
}

TEST_F(Changed, ContentDoesNotMatterToAMove) {
    Find();
    Disk().Node("C:\\t\\sub\\a.txt")->content = "more than before";
    Disk().Node("C:\\t\\sub\\a.txt")->size = 16;
    Move(To("C:\\d"));
    EXPECT_EQ(Content("C:\\d\\a.txt"), "more than before");
    ExpectTotals(1, 0, 0);
}

TEST_F(Changed, OneQuestionNamesThemAllAndYesGoesOn) {
    for (const char* path : {"C:\\t\\sub\\a.txt", "C:\\t\\sub\\b.txt", "C:\\t\\sub\\c.txt"})
        Disk().AddFile(path, "old");
    Find();
    for (const char* path : {"C:\\t\\sub\\a.txt", "C:\\t\\sub\\b.txt"})
        Disk().AddFile(path, "other");
    Move(To("C:\\d"), {"OK", "Yes"});
    EXPECT_THAT(Told(), Contains("2 objects have changed since the search, and were not moved:\r\n"
                                 "\r\nC:\\t\\sub\\a.txt\r\nC:\\t\\sub\\b.txt\r\n\r\n"
                                 "Would you like to move what stands there by now?"));
    EXPECT_EQ(Content("C:\\d\\a.txt"), "other");
    EXPECT_EQ(Content("C:\\d\\b.txt"), "other");
    EXPECT_EQ(Content("C:\\d\\c.txt"), "old");
    ExpectTotals(3, 0, 0);
}

TEST_F(Changed, InAutomaticModeNobodyIsAsked) {
    Find();
    TakeFileAway();
    Disk().AddFile("C:\\t\\sub\\a.txt", "other");
    State().options.blnAutoMode = true;
    Move(To("C:\\d"));
    EXPECT_THAT(Told(), Not(Contains(HasSubstr("changed since"))));
    ExpectTotals(0, 0, 1);
}

TEST_F(Changed, ANeighbourOfAnotherCaseIsNotMovedInItsPlace) {
    Disk().AddFile("C:\\t\\d\\x.txt", "lower");
    Disk().AddFile("C:\\t\\D\\x.txt", "upper");
    Find(0, "C:\\t\\d", "x.txt");
    ASSERT_TRUE(Disk().MoveFolder("C:\\t\\d", "C:\\gone"));
    Move(To("C:\\d"));
    EXPECT_EQ(Content("C:\\t\\D\\x.txt"), "upper");
    EXPECT_FALSE(Disk().Exists("C:\\d\\x.txt"));
    ExpectTotals(0, 0, 1);
}

TEST_F(Changed, ANeighbourOfAnotherCaseIsNotRenamedInItsPlace) {
    Disk().AddFile("C:\\t\\sub\\A.TXT", "upper");
    Find(0, "C:\\t", "*");
    for (std::size_t i = 0; i < program.Rows().Count(); ++i)
        program.Rows().At(i).selected = program.Rows().At(i).name == "a.txt";
    TakeFileAway();
    Rename();
    EXPECT_EQ(Content("C:\\t\\sub\\A.TXT"), "upper");
    ExpectTotals(0, 0, 1);
}

TEST_F(Changed, ANeighbourOfAnotherCaseIsNotDeletedInItsPlace) {
    Disk().AddFile("C:\\t\\sub\\A.TXT", "upper");
    Find();
    for (std::size_t i = 0; i < program.Rows().Count(); ++i)
        program.Rows().At(i).selected = program.Rows().At(i).name == "a.txt";
    TakeFileAway();
    Delete();
    EXPECT_EQ(Content("C:\\t\\sub\\A.TXT"), "upper");
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
}

TEST_F(Changed, WhatTheActionItselfChangedIsNoChange) {
    Disk().AddFile("C:\\t\\sub\\b.txt", "b");
    Find(2);
    Rename();
    EXPECT_EQ(Content("C:\\t\\subx\\ax.txt"), "inside");
    EXPECT_EQ(Content("C:\\t\\subx\\bx.txt"), "b");
    ExpectTotals(3, 0, 0);
}

} // namespace
} // namespace tarvix::testing
