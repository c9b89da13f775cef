#include "platform/object_facts.h"
#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using ::testing::HasSubstr;

class AutoMoveCommandTest : public CliFixture {
  protected:
    void SetUp() override {
        for (const std::string name : {"a.mp3", "b.mp3", "c.jpg"}) {
            Disk().AddFile("C:\\home\\ann\\Music\\" + name, name);
        }
    }
    void Lists(std::string_view searches, std::string_view destinations) {
        Disk().AddFile("C:\\lists\\s.txt", searches);
        Disk().AddFile("C:\\lists\\d.txt", destinations);
    }
    int AutoMove(std::vector<std::string> more) {
        std::vector<std::string> words{"auto-move",    "--in",           "/home/ann/Music",
                                       "--searches",   "/lists/s.txt",   "--destinations",
                                       "/lists/d.txt", "--any-attribute"};
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }
};

TEST_F(AutoMoveCommandTest, MovesLineByLineAndTellsEachStep) {
    Lists("*.mp3\n*.jpg\n*EOF\n", "/out/music\n/out/pictures\n*EOF\n");
    EXPECT_EQ(AutoMove({"--yes"}), kDone) << Err();
    EXPECT_TRUE(Disk().Exists("C:\\out\\music\\a.mp3"));
    EXPECT_TRUE(Disk().Exists("C:\\out\\pictures\\c.jpg"));
    EXPECT_EQ(Out(), "*.mp3\t/out/music\t2 moved\n"
                     "*.jpg\t/out/pictures\t1 moved\n"
                     "Moved 3 objects in 2 steps.\n");
}

TEST_F(AutoMoveCommandTest, WithoutYesNothingMoves) {
    Lists("*.mp3\n*EOF\n", "/out\n*EOF\n");
    EXPECT_EQ(AutoMove({}), kUnanswered);
    EXPECT_THAT(Err(), HasSubstr("say --yes"));
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(AutoMoveCommandTest, ADryRunCountsAndMovesNothing) {
    Disk().AddFolder("C:\\out");
    Lists("*.mp3\n*.jpg\n*EOF\n", "/out\n/new\n*EOF\n");
    EXPECT_EQ(AutoMove({"--dry-run"}), kDone);
    EXPECT_EQ(Out(), "2\t*.mp3\t/out\t\n1\t*.jpg\t/new\tis made\n");
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
    EXPECT_FALSE(Disk().Exists("C:\\new"));
}

TEST_F(AutoMoveCommandTest, AStepThatIsLeftOutGivesOneAndItsReason) {
    Lists("*.mp3\n*.jpg\n*EOF\n", "relative\n/out\n*EOF\n");
    EXPECT_EQ(AutoMove({"--yes"}), kSomeFailed);
    EXPECT_THAT(Out(), HasSubstr("left out: relative is not a full path of a folder."));
    EXPECT_TRUE(Disk().Exists("C:\\out\\c.jpg"));
}

TEST_F(AutoMoveCommandTest, ListsAreCheckedBeforeAnythingMoves) {
    Lists("*.mp3\n*EOF\n", "/out\n");
    EXPECT_EQ(AutoMove({"--yes"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("The list /lists/d.txt has no end"));
    Lists("*.mp3\n*EOF\n", "/one\n/two\n*EOF\n");
    EXPECT_EQ(AutoMove({"--yes"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("/lists/s.txt has 1 lines and /lists/d.txt has 2"));
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(AutoMoveCommandTest, ASecondRoundForFilesNeedsAFirstOneForFolders) {
    Lists("*.mp3\n*EOF\n", "/out\n*EOF\n");
    EXPECT_EQ(AutoMove({"--yes", "--then-files"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("--then-files goes with --kind folders"));
    EXPECT_TRUE(Disk().Exists("C:\\home\\ann\\Music\\a.mp3"));
}

TEST_F(AutoMoveCommandTest, ACopyThatLeftItsOriginalIsTold) {
    Disk().AddFile("C:\\home\\ann\\Music\\secret.ogg", "hidden");
    ASSERT_TRUE(Disk().SetAttributes("C:\\home\\ann\\Music\\secret.ogg", platform::kHidden));
    Lists("secret*\n*EOF\n", "/out\n*EOF\n");
    EXPECT_EQ(AutoMove({"--yes"}), kSomeFailed);
    EXPECT_THAT(Out(), HasSubstr("0 moved, 1 copied only, the originals still stand"));
}

TEST_F(AutoMoveCommandTest, BothListsAreNeeded) {
    EXPECT_EQ(Run({"auto-move", "--in", "/home/ann", "--searches", "/lists/s.txt"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("--destinations FILE"));
}

} // namespace
} // namespace tarvix::cli
