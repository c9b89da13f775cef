#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

class CopyCommandTest : public CliFixture {
  protected:
    CopyCommandTest() {
        Disk().AddFile("C:\\home\\ann\\Music\\a.mp3", "aaa");
        Disk().AddFile("C:\\home\\ann\\Music\\Jazz\\b.mp3", "bbb");
    }
    int Copy(std::vector<std::string> more) {
        more.insert(more.begin(), {"copy", "*.mp3", "--in", "Music"});
        return Run(more);
    }
};

TEST_F(CopyCommandTest, CopiesEverythingFoundIntoOneFolder) {
    EXPECT_EQ(Copy({"--to", "/tmp/out", "--yes"}), kDone);
    EXPECT_EQ(Out(), "Copied 2 of 2 objects.\n");
    EXPECT_EQ(Err(), "");
    EXPECT_EQ(Disk().Content("C:\\tmp\\out\\a.mp3"), "aaa");
    EXPECT_EQ(Disk().Content("C:\\tmp\\out\\b.mp3"), "bbb");
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\Music\\a.mp3"), "aaa");
}

TEST_F(CopyCommandTest, WithoutYesNothingIsCopied) {
    EXPECT_EQ(Copy({"--to", "/tmp/out"}), kUnanswered);
    EXPECT_THAT(Err(), ::testing::HasSubstr("Are you sure you want to"));
    EXPECT_THAT(Err(), ::testing::EndsWith("give --yes.\n"));
    EXPECT_FALSE(Disk().Exists("C:\\tmp\\out"));
}

TEST_F(CopyCommandTest, WhatExistsIsSkippedAndCounted) {
    Disk().AddFile("C:\\tmp\\out\\a.mp3", "older");
    EXPECT_EQ(Copy({"--to", "/tmp/out", "--yes"}), kDone);
    EXPECT_EQ(Out(), "Copied 1 of 2 objects; 1 skipped as it exists already.\n");
    EXPECT_EQ(Disk().Content("C:\\tmp\\out\\a.mp3"), "older");
}

TEST_F(CopyCommandTest, ADryRunCountsASkippedDuplicateAsTheCopyItselfDoes) {
    Disk().AddFile("C:\\tmp\\out\\a.mp3", "older");
    EXPECT_EQ(Copy({"--to", "/tmp/out", "--dry-run"}), kDone);
    EXPECT_THAT(Out(), ::testing::HasSubstr("duplicate: skip\t"));
    EXPECT_FALSE(Disk().Exists("C:\\tmp\\out\\b.mp3"));
}

TEST_F(CopyCommandTest, AFailureIsCountedAndToldAndTheRestGoesOn) {
    machine.faults.FailPath("C:\\home\\ann\\Music\\a.mp3", platform::kPermissionDenied, "CopyFile");
    EXPECT_EQ(Copy({"--to", "/tmp/out", "--yes"}), kSomeFailed);
    EXPECT_THAT(Out(), ::testing::HasSubstr(" failed"));
    EXPECT_NE(Err(), "");
    EXPECT_EQ(Disk().Content("C:\\tmp\\out\\b.mp3"), "bbb");
}

TEST_F(CopyCommandTest, NothingFoundIsDone) {
    EXPECT_EQ(Run({"copy", "*.ogg", "--in", "Music", "--to", "/tmp/out", "--yes"}), kDone);
    EXPECT_EQ(Out(), "Copied 0 of 0 objects.\n");
}

TEST_F(CopyCommandTest, ADestinationThatIsAFileIsRefused) {
    Disk().AddFile("C:\\tmp\\plain.txt", "x");
    EXPECT_EQ(Copy({"--to", "/tmp/plain.txt", "--yes"}), kBadRequest);
    EXPECT_THAT(Err(), ::testing::HasSubstr("is a file"));
    EXPECT_EQ(Disk().Content("C:\\tmp\\plain.txt"), "x");
}

TEST_F(CopyCommandTest, ARelativeDestinationStartsAtTheCurrentFolder) {
    EXPECT_EQ(Copy({"--to", "backup", "--yes"}), kDone);
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\backup\\a.mp3"));
}

TEST_F(CopyCommandTest, ADestinationThatHoldsWhatNoPathCanIsRefusedAndNothingIsMade) {
    EXPECT_EQ(Copy({"--to", "C:\\data/x/y", "--yes"}), kBadRequest);
    EXPECT_THAT(Err(), ::testing::HasSubstr("C:\\data/x/y can't be used as a destination"));
    EXPECT_EQ(Copy({"--to", "C:\\a|b", "--yes"}), kBadRequest);
    EXPECT_THAT(Err(), ::testing::HasSubstr("There is an asterick '*' or bar '|'"));
    EXPECT_EQ(
        Copy({"--to", "C:\\new", "--on-duplicate", "rename", "--rename-text", "..\\up", "--yes"}),
        kBadRequest);
    EXPECT_THAT(Err(), ::testing::HasSubstr("\"..\\up\" can't become part of a name"));
    EXPECT_EQ(Out(), "");
    EXPECT_FALSE(Disk().Exists("C:\\a"));
    EXPECT_FALSE(Disk().Exists("C:\\ab"));
    EXPECT_FALSE(Disk().Exists("C:\\new"));
    EXPECT_FALSE(Disk().Exists("C:\\dataxy"));
}

TEST_F(CopyCommandTest, ARelativeDestinationKeepsEveryCharacter) {
    EXPECT_EQ(Copy({"--to", "a|b", "--yes"}), kDone);
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\a\uF07Cb\\a.mp3"));
}

TEST_F(CopyCommandTest, ATextForNamesThatHoldsAPathIsRefused) {
    for (const char* text : {"..\\..\\x", "../x"}) {
        EXPECT_EQ(Run({"rename", "*.mp3", "--in", "Music", "--insert", text, "--yes"}),
                  kBadRequest);
        EXPECT_THAT(Err(), ::testing::HasSubstr("can't become part of a name"));
    }
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\Music\\a.mp3"), "aaa");
}

TEST_F(CopyCommandTest, TheWarningOnManyFoldersIsNotAnsweredByYes) {
    Disk().AddFile("C:\\home\\ann\\Music\\Folk\\c.mp3", "c");
    EXPECT_EQ(Run({"copy", "*", "--in", "Music", "--kind", "all", "--to", "/tmp/out", "--yes"}),
              kUnanswered);
    EXPECT_THAT(Err(), ::testing::HasSubstr("give --answer OK or --answer Cancel."));
    EXPECT_FALSE(Disk().Exists("C:\\tmp\\out"));
    EXPECT_EQ(Run({"copy", "*", "--in", "Music", "--kind", "all", "--to", "/tmp/out", "--yes",
                   "--answer", "OK"}),
              kDone);
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\out\\c.mp3"));
}

} // namespace
} // namespace tarvix::cli
