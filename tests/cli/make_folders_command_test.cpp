#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using ::testing::HasSubstr;

class MakeFoldersCommandTest : public CliFixture {};

TEST_F(MakeFoldersCommandTest, MakesNumberedCountedAndListedFolders) {
    EXPECT_EQ(Run({"make-folders", "--in", "/tmp", "--from", "98", "--count", "3"}), kDone);
    EXPECT_EQ(Out(), "Made 3 of 3 folders.\n");
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\098"));
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\100"));
    EXPECT_EQ(Run({"make-folders", "--in", "/tmp", "--from", "y", "--to", "10"}), kDone);
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\Z"));
    Disk().AddFile("C:\\home\\ann\\l.txt", "one\n*EOF\n");
    EXPECT_EQ(Run({"make-folders", "--in", "/tmp", "--list", "l.txt"}), kDone);
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\one"));
}

TEST_F(MakeFoldersCommandTest, ANameThatIsTakenIsToldAndEndsWithOne) {
    Disk().AddFolder("C:\\tmp\\2");
    EXPECT_EQ(Run({"make-folders", "--in", "/tmp", "--from", "1", "--count", "3"}), kSomeFailed);
    EXPECT_EQ(Out(), "Made 2 of 3 folders.\n");
    EXPECT_THAT(Err(), HasSubstr("1 name is taken already."));
}

TEST_F(MakeFoldersCommandTest, WhatCanNotBeDoneIsRefused) {
    EXPECT_EQ(Run({"make-folders", "--in", "/tmp"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("Say which folders"));
    EXPECT_EQ(Run({"make-folders", "--in", "/none", "--from", "1", "--count", "2"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("There is no folder \"/none\""));
    EXPECT_EQ(Run({"make-folders", "--in", "/tmp", "--from", "x", "--count", "2"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("\"x\" is not numeric."));
    EXPECT_EQ(Run({"make-folders", "--in", "/tmp", "--list", "none.txt"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("There is no file \"none.txt\""));
}

} // namespace
} // namespace tarvix::cli
