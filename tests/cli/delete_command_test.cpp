#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class DeleteCommandTest : public CliFixture {
  protected:
    DeleteCommandTest() {
        Disk().AddFile("C:\\home\\ann\\Music\\a.mp3", "aaa");
        Disk().AddFile("C:\\home\\ann\\Music\\Jazz\\b.mp3", "bbb");
    }
    int Delete(std::vector<std::string> more, const std::string& pattern = "*.mp3") {
        more.insert(more.begin(), {"delete", pattern, "--in", "Music", "--any-attribute"});
        return Run(more);
    }
    std::vector<std::string> Trashed() { return machine.bin.Paths(); }
};

TEST_F(DeleteCommandTest, SendsEverythingFoundToTheTrash) {
    EXPECT_EQ(Delete({"--yes"}), kDone);
    EXPECT_EQ(Out(), "Recycled 2 of 2 objects.\n");
    EXPECT_EQ(Err(), "");
    EXPECT_THAT(Trashed(),
                ElementsAre("C:\\home\\ann\\Music\\a.mp3", "C:\\home\\ann\\Music\\Jazz\\b.mp3"));
}

TEST_F(DeleteCommandTest, WithoutYesNothingIsDeleted) {
    EXPECT_EQ(Delete({}), kUnanswered);
    EXPECT_THAT(Err(), HasSubstr("Are you sure you want delete all selected objects?"));
    EXPECT_THAT(Err(), EndsWith("give --yes.\n"));
    EXPECT_EQ(Out(), "");
    EXPECT_THAT(Trashed(), IsEmpty());
}

TEST_F(DeleteCommandTest, AnAnswerConfirmsToo) {
    EXPECT_EQ(Delete({"--answer", "Yes"}), kDone);
    EXPECT_EQ(Trashed().size(), 2U);
}

TEST_F(DeleteCommandTest, TheAnswerNoDeletesNothing) {
    EXPECT_EQ(Delete({"--answer", "No"}), kBadRequest);
    EXPECT_THAT(Trashed(), IsEmpty());
}

TEST_F(DeleteCommandTest, TheWarningOnFoldersWithFilesIsNotAnsweredByYes) {
    EXPECT_EQ(Delete({"--kind", "all", "--yes"}, "*"), kUnanswered);
    EXPECT_THAT(Err(), HasSubstr("ARE YOU REALLY SURE???"));
    EXPECT_THAT(Err(), EndsWith("give --answer Yes or --answer No.\n"));
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_EQ(Delete({"--kind", "all", "--yes", "--answer", "Yes"}, "*"), kDone);
    EXPECT_EQ(Out(), "Recycled 3 of 3 objects.\n");
    EXPECT_THAT(Disk().AllFolders(), Not(Contains("C:\\home\\ann\\Music\\Jazz")));
}

TEST_F(DeleteCommandTest, NothingFoundIsDone) {
    EXPECT_EQ(Delete({"--yes"}, "*.ogg"), kDone);
    EXPECT_EQ(Out(), "Recycled 0 of 0 objects.\n");
}

TEST_F(DeleteCommandTest, WhatCannotBeRecycledNeedsAnAnswerAndTheRestStays) {
    machine.bin.Refuse("C:\\home\\ann\\Music\\a.mp3", 70);
    EXPECT_EQ(Delete({"--yes"}), kUnanswered);
    EXPECT_THAT(Err(), HasSubstr("failed to be recycled."));
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\Jazz\\b.mp3"));
}

TEST_F(DeleteCommandTest, KeepLeavesWhatCannotBeRecycled) {
    machine.bin.Refuse("C:\\home\\ann\\Music\\a.mp3", 70);
    EXPECT_EQ(Delete({"--yes", "--on-recycle-failure", "keep"}), kSomeFailed);
    EXPECT_EQ(Out(), "Recycled 1 of 2 objects; 1 failed.\n");
    EXPECT_THAT(Trashed(), ElementsAre("C:\\home\\ann\\Music\\Jazz\\b.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(DeleteCommandTest, DeleteTakesForGoodWhatCannotBeRecycledAndSaysSo) {
    machine.bin.Refuse("C:\\home\\ann\\Music\\a.mp3", 70);
    EXPECT_EQ(Delete({"--yes", "--on-recycle-failure", "delete"}), kDone);
    EXPECT_EQ(Out(), "Recycled 1 of 2 objects; 1 deleted for good.\n");
    EXPECT_FALSE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(DeleteCommandTest, AHiddenObjectNeedsAnAnswerAndNothingIsRecycled) {
    Disk().AddFile("C:\\home\\ann\\Music\\z.mp3").attributes = platform::kHidden;
    EXPECT_EQ(Delete({"--yes"}), kUnanswered);
    EXPECT_THAT(Err(), HasSubstr("has the attribute(s) system or hidden."));
    EXPECT_THAT(Trashed(), IsEmpty());
}

TEST_F(DeleteCommandTest, HiddenObjectsStayOrGoAsTheOptionSays) {
    Disk().AddFile("C:\\home\\ann\\Music\\y.mp3").attributes = platform::kHidden;
    Disk().AddFile("C:\\home\\ann\\Music\\z.mp3").attributes = platform::kSystem;
    EXPECT_EQ(Delete({"--yes", "--override-system-hidden", "no"}), kSomeFailed);
    EXPECT_EQ(Out(), "Recycled 2 of 4 objects; 2 skipped.\n");
    EXPECT_EQ(Delete({"--yes", "--override-system-hidden", "yes"}), kDone);
    EXPECT_EQ(Out(), "Recycled 2 of 2 objects.\n");
}

TEST_F(DeleteCommandTest, WhatHasChangedSinceItWasFoundStaysOrGoesAsTheOptionSays) {
    const auto exchange = [this] { Disk().AddFile("C:\\home\\ann\\Music\\a.mp3", "other"); };
    machine.faults.BeforeCall("Recycle", 1, exchange);
    EXPECT_EQ(Delete({"--yes"}), kSomeFailed);
    EXPECT_THAT(Out(), HasSubstr("; 1 failed.\n"));
    EXPECT_THAT(Err(), HasSubstr("1 object has changed since the search, and was not recycled:"));
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\Music\\a.mp3"), "other");
    machine.faults.ClearFaults();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("Recycle", 1, exchange);
    EXPECT_EQ(Delete({"--yes", "--even-if-changed"}), kDone);
    EXPECT_EQ(Out(), "Recycled 1 of 1 object.\n");
    EXPECT_FALSE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(DeleteCommandTest, ADryRunTellsOfEachAndTouchesNothing) {
    Disk().AddFile("C:\\home\\ann\\Music\\y.mp3").attributes = platform::kHidden;
    EXPECT_EQ(Delete({"--dry-run"}), kSomeFailed);
    EXPECT_EQ(Out(), "trash\t/home/ann/Music/a.mp3\n"
                     "trash\t/home/ann/Music/Jazz/b.mp3\n"
                     "protected: ask\t/home/ann/Music/y.mp3\n");
    EXPECT_EQ(Err(), "");
    EXPECT_EQ(Delete({"--dry-run", "--override-system-hidden", "no"}), kSomeFailed);
    EXPECT_THAT(Out(), HasSubstr("protected: left alone\t/home/ann/Music/y.mp3\n"));
    EXPECT_EQ(Delete({"-n", "--override-system-hidden", "yes", "--yes"}), kDone);
    EXPECT_THAT(Out(), HasSubstr("trash\t/home/ann/Music/y.mp3\n"));
    EXPECT_THAT(Trashed(), IsEmpty());
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(DeleteCommandTest, ADryRunTellsWhatGoesWithItsFolderAndWhatTheTrashRefuses) {
    EXPECT_EQ(Delete({"--dry-run", "--kind", "all", "--json"}, "*"), kDone);
    EXPECT_THAT(Out(), HasSubstr(R"("NativePath":"/home/ann/Music/Jazz","Verdict":"trash"})"));
    EXPECT_THAT(Out(),
                HasSubstr(R"("NativePath":"/home/ann/Music/Jazz/b.mp3","Verdict":"trash"})"));
    machine.bin.SetHasTrash("C:", false);
    EXPECT_EQ(Delete({"--dry-run"}, "a.mp3"), kSomeFailed);
    EXPECT_EQ(Out(), "no trash\t/home/ann/Music/a.mp3\n");
    EXPECT_EQ(Delete({"--dry-run", "--on-recycle-failure", "delete"}, "a.mp3"), kDone);
    EXPECT_EQ(Out(), "delete for good\t/home/ann/Music/a.mp3\n");
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(DeleteCommandTest, EqualFailuresAreOneLineAndVerboseListsThem) {
    machine.bin.Refuse("C:\\home\\ann\\Music\\a.mp3", 70);
    machine.bin.Refuse("C:\\home\\ann\\Music\\Jazz\\b.mp3", 70);
    const std::vector<std::string> keep{"--yes", "--on-recycle-failure", "keep"};
    EXPECT_EQ(Delete(keep), kSomeFailed);
    EXPECT_THAT(Err(), HasSubstr("2 objects: "));
    EXPECT_THAT(Err(), HasSubstr("--verbose lists all."));
    EXPECT_EQ(Delete({"--yes", "--on-recycle-failure", "keep", "--verbose"}), kSomeFailed);
    EXPECT_THAT(Err(), HasSubstr("a.mp3"));
    EXPECT_THAT(Err(), HasSubstr("b.mp3"));
    EXPECT_THAT(Err(), Not(HasSubstr("--verbose")));
}

TEST_F(DeleteCommandTest, AWordThatIsNoChoiceIsRefusedBeforeAnything) {
    EXPECT_EQ(Delete({"--yes", "--on-recycle-failure", "ask"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("--on-recycle-failure: ask not in {keep,delete}."));
    EXPECT_EQ(Delete({"--yes", "--override-system-hidden", "all"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("--override-system-hidden: all not in {no,yes}."));
    EXPECT_THAT(Trashed(), IsEmpty());
}

TEST_F(DeleteCommandTest, AnOptionOfACopyIsNoneOfADeletion) {
    EXPECT_EQ(Delete({"--yes", "--to", "/tmp/out"}), kBadRequest);
    EXPECT_THAT(Trashed(), IsEmpty());
}

TEST_F(DeleteCommandTest, AnInterruptionEndsItBeforeTheNextObject) {
    for (int i = 0; i < 40; ++i) {
        Disk().AddFile("C:\\home\\ann\\Music\\f" + std::to_string(i) + ".mp3");
    }
    machine.faults.BeforeCall("Recycle", 3, [this] {
        interrupted = 15;
        machine.clock.SetStep(20'000'000);
    });
    EXPECT_EQ(Delete({"--yes"}), 143);
    EXPECT_EQ(Out(), "Recycled 3 of 42 objects; 39 skipped.\n");
    EXPECT_EQ(Trashed().size(), 3U);
}

TEST_F(DeleteCommandTest, AutomaticModeOfTheOptionsStillAsks) {
    Disk().AddFile("C:\\home\\ann\\tarvix\\TXOptionFile.txt", "blnAutoMode = True\r\n*EOF\r\n");
    machine.bin.Refuse("C:\\home\\ann\\Music\\a.mp3", 70);
    EXPECT_EQ(Delete({"--yes"}), kUnanswered);
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(DeleteCommandTest, TheHelpTellsItsOptions) {
    EXPECT_EQ(Run({"delete", "--help"}), kDone);
    for (const char* part : {"--on-recycle-failure", "--override-system-hidden",
                             "--even-if-changed", "-y,--yes", "gio trash --restore"}) {
        EXPECT_THAT(Out(), HasSubstr(part));
    }
}

} // namespace
} // namespace tarvix::cli
