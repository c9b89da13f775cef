#include "tests/platform/conformance.h"

namespace tarvix::platform {

TEST_P(FileSystemConformance, AnObjectHoldsItself) {
    disk().MakeFile("folder\\a.txt", "x");
    EXPECT_TRUE(*files().Holds(At("folder\\a.txt"), At("folder\\a.txt")));
    EXPECT_TRUE(*files().Holds(At("folder"), At("folder")));
    EXPECT_TRUE(*files().Holds(At("FOLDER\\A.TXT"), At("folder\\a.txt")));
}

TEST_P(FileSystemConformance, AFolderHoldsAllThatLiesInItAndNothingElse) {
    disk().MakeFile("folder\\deep\\a.txt", "x");
    disk().MakeFile("folder2\\a.txt", "x");
    EXPECT_TRUE(*files().Holds(At("folder"), At("folder\\deep\\a.txt")));
    EXPECT_TRUE(*files().Holds(At("folder"), At("folder\\deep")));
    EXPECT_FALSE(*files().Holds(At("folder\\deep"), At("folder")));
    EXPECT_FALSE(*files().Holds(At("folder"), At("folder2\\a.txt")));
    EXPECT_FALSE(*files().Holds(At("folder2\\a.txt"), At("folder\\deep\\a.txt")));
}

TEST_P(FileSystemConformance, HoldsOfWhatIsMissingGives53Or76) {
    disk().MakeFile("a.txt", "x");
    EXPECT_EQ(NumberOf(files().Holds(At("a.txt"), At("missing"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().Holds(At("missing"), At("a.txt"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().Holds(At("missing\\b"), At("a.txt"))), kPathNotFound);
}

TEST_P(FileSystemConformance, HoldsSeesThroughLinksOnTheWay) {
    disk().MakeFile("folder\\deep\\a.txt", "x");
    disk().MakeLink("road", "folder\\deep");
    EXPECT_TRUE(*files().Holds(At("folder\\deep\\a.txt"), At("road\\a.txt")));
    EXPECT_TRUE(*files().Holds(At("road\\a.txt"), At("folder\\deep\\a.txt")));
    EXPECT_TRUE(*files().Holds(At("folder"), At("road\\a.txt")));
}

TEST_P(FileSystemConformance, ALinkIsHeldByWhatItLeadsToButDoesNotHoldIt) {
    disk().MakeFile("a.txt", "x");
    disk().MakeFile("b.txt", "x");
    disk().MakeLink("link", "a.txt");
    EXPECT_TRUE(*files().Holds(At("a.txt"), At("link")));
    EXPECT_FALSE(*files().Holds(At("link"), At("a.txt")));
    EXPECT_FALSE(*files().Holds(At("b.txt"), At("link")));
    EXPECT_TRUE(*files().Holds(At("link"), At("link")));
}

TEST_P(FileSystemConformance, ACopyIsAnotherObjectAndAMovedOneIsTheSame) {
    disk().MakeFile("a.txt", "x");
    ASSERT_TRUE(files().CopyFile(At("a.txt"), At("b.txt"), false, {}));
    EXPECT_FALSE(*files().Holds(At("a.txt"), At("b.txt")));
    ASSERT_TRUE(files().CreateFolder(At("folder")));
    ASSERT_TRUE(files().MoveFile(At("a.txt"), At("folder\\a.txt"), {}));
    EXPECT_TRUE(*files().Holds(At("folder"), At("folder\\a.txt")));
    EXPECT_FALSE(*files().Holds(At("folder\\a.txt"), At("b.txt")));
}

} // namespace tarvix::platform
