#include "tests/platform/conformance.h"

namespace tarvix::platform {

using List = std::vector<std::string>;

TEST_P(FileSystemConformance, APreparedCopyIsNotSeenUntilItHasItsName) {
    disk().MakeFile("from\\a.txt", "new");
    disk().MakeFile("to\\a.txt", "old");
    auto copy = files().PrepareFile(At("from\\a.txt"), At("to\\a.txt"), {});
    ASSERT_TRUE(copy);
    EXPECT_EQ(TextOf("to\\a.txt"), "old");
    EXPECT_EQ(NumberOf((*copy)->Name()), kAlreadyExists);
    EXPECT_EQ(TextOf("to\\a.txt"), "old");
    ASSERT_TRUE(Recycle({"to\\a.txt"}));
    ASSERT_TRUE((*copy)->Name());
    copy->reset();
    EXPECT_EQ(TextOf("to\\a.txt"), "new");
    EXPECT_EQ(TextOf("from\\a.txt"), "new");
    EXPECT_EQ(Names("to"), List{"a.txt"});
}

TEST_P(FileSystemConformance, APreparedCopyWithoutANameLeavesNothing) {
    disk().MakeFile("from\\a.txt", "1");
    disk().MakeFile("from\\sub\\b.txt", "2");
    disk().SetReadOnly("from\\sub");
    disk().MakeFolder("to");
    ASSERT_TRUE(files().PrepareFile(At("from\\a.txt"), At("to\\a.txt"), {}));
    ASSERT_TRUE(files().PrepareFolder(At("from"), At("to\\from"), {}));
    EXPECT_EQ(Names("to"), List{});
    ASSERT_TRUE(files().SetAttributes(At("from\\sub"), 0));
}

TEST_P(FileSystemConformance, APreparedFolderGetsItsNameWhole) {
    disk().MakeFile("from\\sub\\b.txt", "2");
    disk().MakeFile("to\\from\\old.txt", "old");
    auto copy = files().PrepareFolder(At("from"), At("to\\from"), {});
    ASSERT_TRUE(copy);
    EXPECT_EQ((*copy)->Missing(), "");
    EXPECT_EQ(NumberOf((*copy)->Name()), kAlreadyExists);
    ASSERT_TRUE(Recycle({"to\\from"}));
    ASSERT_TRUE((*copy)->Name());
    EXPECT_EQ(TextOf("to\\from\\sub\\b.txt"), "2");
    EXPECT_EQ(Names("to\\from"), List{"sub"});
    EXPECT_EQ(Names("to"), List{"from"});
}

TEST_P(FileSystemConformance, APreparedLinkIsALink) {
    disk().MakeFile("outside\\a.txt", "1");
    disk().MakeLink("link", "outside");
    disk().MakeFolder("to");
    auto copy = files().PrepareFolder(At("link"), At("to\\link"), {});
    ASSERT_TRUE(copy && (*copy)->Name());
    EXPECT_EQ(AttributesOf("to\\link") & (kAlias | kFolder), std::uint32_t{kAlias | kFolder});
}

TEST_P(FileSystemConformance, AFolderCopyThatFailsLeavesNothingOfIt) {
    disk().MakeFile("from\\a.txt", "1");
    disk().MakeFile("from\\b.txt", "2");
    disk().MakeFolder("to");
    const auto observer = [&](const CopyProgress& progress) {
        return progress.path != At("from\\b.txt");
    };
    EXPECT_EQ(NumberOf(files().CopyFolder(At("from"), At("to\\from"), false, observer)),
              kInterrupted);
    EXPECT_EQ(NumberOf(files().PrepareFolder(At("from"), At("to\\from"), observer)), kInterrupted);
    EXPECT_EQ(Names("to"), List{});
}

TEST_P(FileSystemConformance, APreparedFolderTellsWhatIsMissingInIt) {
    disk().MakeFile("from\\a.txt", "1");
    if (!disk().MakeFifo("from\\b pipe")) GTEST_SKIP() << "not on this disk";
    auto copy = files().PrepareFolder(At("from"), At("to"), {});
    ASSERT_TRUE(copy);
    EXPECT_NE((*copy)->Missing(), "");
    ASSERT_TRUE((*copy)->Name());
    EXPECT_EQ(Names("to"), List{"a.txt"});
}

TEST_P(FileSystemConformance, APreparedFolderNeverGoesIntoItself) {
    disk().MakeFile("from\\inner\\a.txt", "1");
    EXPECT_EQ(NumberOf(files().PrepareFolder(At("from"), At("from\\copy"), {})), kPathFileAccess);
    EXPECT_EQ(NumberOf(files().PrepareFolder(At("from"), At("from\\inner\\copy"), {})),
              kPathFileAccess);
    EXPECT_EQ(Names("from"), List{"inner"});
}

// ---- a source that changes while it is copied ----

TEST_P(FileSystemConformance, AFileThatChangesWhileItIsCopiedIsCopiedAgain) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "sees nothing of what others do";
    disk().MakeFile("a.txt", "before");
    disk().SetModified("a.txt", 1'400'000'000'000'000'000);
    int calls = 0;
    const auto observer = [&](const CopyProgress& progress) {
        if (progress.bytesDone > 0 && ++calls == 1) Append("a.txt", " and behind");
        return true;
    };
    ASSERT_TRUE(files().CopyFile(At("a.txt"), At("b.txt"), false, observer));
    EXPECT_EQ(TextOf("b.txt"), "before and behind");
}

TEST_P(FileSystemConformance, AFileThatChangesAgainAndAgainGetsNoCopy) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "sees nothing of what others do";
    disk().MakeFile("a.txt", "1");
    const auto observer = [&](const CopyProgress& progress) {
        if (progress.bytesDone > 0) Append("a.txt", "1");
        return true;
    };
    EXPECT_EQ(NumberOf(files().CopyFile(At("a.txt"), At("b.txt"), false, observer)),
              kPathFileAccess);
    EXPECT_EQ(NumberOf(files().PrepareFile(At("a.txt"), At("c.txt"), observer)), kPathFileAccess);
    EXPECT_EQ(Names(""), List{"a.txt"});
}

} // namespace tarvix::platform
