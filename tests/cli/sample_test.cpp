#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using SampleTest = CliFixture;

TEST_F(SampleTest, FillsANewFolder) {
    EXPECT_EQ(Run({"sample", "/tmp/sample"}), kDone) << Err();
    EXPECT_EQ(Out(), "Made 58 files in 12 folders of /tmp/sample.\n");
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\sample\\Music\\Jazz\\Naima.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\sample\\Photos\\Holiday 2025\\Panorama 3\uF03A1.jpg"));
    EXPECT_EQ(Disk().Content("C:\\tmp\\sample\\Downloads\\empty.part"), "");
}

TEST_F(SampleTest, AnEmptyFolderIsFilledToo) {
    Disk().AddFolder("C:\\tmp\\sample");
    EXPECT_EQ(Run({"sample", "/tmp/sample"}), kDone);
}

TEST_F(SampleTest, AFolderThatHoldsAnythingIsRefused) {
    Disk().AddFile("C:\\tmp\\sample\\mine.txt", "x");
    EXPECT_EQ(Run({"sample", "/tmp/sample"}), kBadRequest);
    EXPECT_EQ(Err(), "tarvix-cli: No sample was made: \"/tmp/sample\" is not empty: name a folder "
                     "that is new or empty.\n");
    EXPECT_FALSE(Disk().Exists("C:\\tmp\\sample\\Music"));
}

TEST_F(SampleTest, AFileIsRefused) {
    Disk().AddFile("C:\\tmp\\sample", "x");
    EXPECT_EQ(Run({"sample", "/tmp/sample"}), kBadRequest);
    EXPECT_THAT(Err(), ::testing::HasSubstr("is a file"));
}

TEST_F(SampleTest, AMissingParentIsTold) {
    EXPECT_EQ(Run({"sample", "/tmp/no/sample"}), kBadRequest);
    EXPECT_THAT(Err(), ::testing::StartsWith("tarvix-cli: No sample was made: "));
}

} // namespace
} // namespace tarvix::cli
