#include "tests/platform/conformance.h"

namespace tarvix::platform {

using List = std::vector<std::string>;

TEST_P(FileSystemConformance, CopyTreeCopiesAllThatIsInIt) {
    disk().MakeFile("from\\a.txt", "1");
    disk().MakeFile("from\\inner\\b.txt", "2");
    disk().MakeFile("from\\inner\\deep\\.c", "3");
    disk().MakeFolder("from\\empty");
    ASSERT_TRUE(CopyTree("from", "to"));
    EXPECT_EQ(TextOf("to\\a.txt"), "1");
    EXPECT_EQ(TextOf("to\\inner\\b.txt"), "2");
    EXPECT_EQ(TextOf("to\\inner\\deep\\.c"), "3");
    EXPECT_EQ(Names("to"), (List{"a.txt", "empty", "inner"}));
    EXPECT_EQ(TextOf("from\\inner\\b.txt"), "2");
}

TEST_P(FileSystemConformance, CopyTreeKeepsTimesOfFilesAndFolders) {
    disk().MakeFile("from\\inner\\a.txt", "1");
    disk().SetModified("from\\inner\\a.txt", 1'400'000'000'000'000'000);
    disk().SetModified("from\\inner", 1'300'000'000'000'000'000);
    disk().SetModified("from", 1'200'000'000'000'000'000);
    ASSERT_TRUE(CopyTree("from", "to"));
    EXPECT_EQ(files().Facts(At("to\\inner\\a.txt"))->modified, 1'400'000'000'000'000'000);
    EXPECT_EQ(files().Facts(At("to\\inner"))->modified, 1'300'000'000'000'000'000);
    EXPECT_EQ(files().Facts(At("to"))->modified, 1'200'000'000'000'000'000);
}

TEST_P(FileSystemConformance, CopyTreeTakesAReadOnlyFolderWithItsContent) {
    disk().MakeFile("from\\inner\\a.txt", "1");
    disk().SetReadOnly("from\\inner");
    ASSERT_TRUE(CopyTree("from", "to"));
    EXPECT_EQ(TextOf("to\\inner\\a.txt"), "1");
    EXPECT_NE(AttributesOf("to\\inner") & kReadOnly, 0u);
    ASSERT_TRUE(files().SetAttributes(At("to\\inner"), 0));
    ASSERT_TRUE(files().SetAttributes(At("from\\inner"), 0));
}

TEST_P(FileSystemConformance, CopyTreeCopiesLinksAsLinks) {
    disk().MakeFile("outside\\a.txt", "1");
    disk().MakeLink("from\\to folder", "outside");
    disk().MakeLink("from\\to nothing", "missing");
    disk().MakeLink("from\\up", "from");
    ASSERT_TRUE(CopyTree("from", "to"));
    EXPECT_EQ(AttributesOf("to\\to folder") & (kAlias | kFolder), std::uint32_t{kAlias | kFolder});
    EXPECT_EQ(AttributesOf("to\\to nothing") & (kAlias | kFolder), std::uint32_t{kAlias});
    EXPECT_EQ(AttributesOf("to\\up") & (kAlias | kFolder), std::uint32_t{kAlias | kFolder});
}

TEST_P(FileSystemConformance, CopyTreeOfALinkCopiesTheLink) {
    disk().MakeFile("outside\\a.txt", "1");
    disk().MakeLink("link", "outside");
    ASSERT_TRUE(CopyTree("link", "copy"));
    EXPECT_EQ(AttributesOf("copy") & (kAlias | kFolder), std::uint32_t{kAlias | kFolder});
    EXPECT_EQ(TextOf("outside\\a.txt"), "1");
}

TEST_P(FileSystemConformance, CopyTreeKeepsNamesThatDifferInCaseApart) {
    disk().MakeFile("from\\a.txt", "lower");
    disk().MakeFile("from\\A.txt", "upper");
    disk().MakeFile("from\\dir\\x", "1");
    disk().MakeFile("from\\DIR\\y", "2");
    ASSERT_TRUE(CopyTree("from", "to", true));
    EXPECT_EQ(TextOf("to\\a.txt"), "lower");
    EXPECT_EQ(TextOf("to\\A.txt"), "upper");
    EXPECT_EQ(Names("to\\dir"), List{"x"});
    EXPECT_EQ(Names("to\\DIR"), List{"y"});
}

TEST_P(FileSystemConformance, CopyTreeKeepsNamesThatAreNoTextApart) {
    disk().MakeFile("from\\a.txt", "1");
    disk().MakeFolder("from\\inner");
    if (!disk().MakeBadName("from", "caf\xE9.txt")) GTEST_SKIP() << "not on this disk";
    ASSERT_TRUE(disk().MakeBadName("from", "caf\xE8.txt"));
    ASSERT_TRUE(disk().MakeBadName("from\\inner", "\xFF"));
    ASSERT_TRUE(CopyTree("from", "to"));
    EXPECT_EQ(Listed("to"), (List{"a.txt", "caf\uF0E8.txt", "caf\uF0E9.txt", "inner"}));
    EXPECT_EQ(Listed("to\\inner"), List{"\uF0FF"});
    EXPECT_EQ(NumberOf(CopyTree("from\\inner", "to\\inner")), kAlreadyExists);
    EXPECT_TRUE(CopyTree("from\\inner", "to\\inner", true));
    EXPECT_EQ(Listed("to\\inner"), List{"\uF0FF"});
}

TEST_P(FileSystemConformance, CopyTreeOfWhatCannotBeListedMakesNothing) {
    disk().MakeFile("from\\a.txt", "1");
    disk().MakeFile("to\\b.txt", "2");
    if (!disk().MakeUnreadable("from")) GTEST_SKIP() << "not on this disk or for this user";
    EXPECT_EQ(NumberOf(CopyTree("from", "copy")), kPermissionDenied);
    EXPECT_EQ(NumberOf(CopyTree("from", "to\\copy")), kPermissionDenied);
    EXPECT_EQ(Names(""), (List{"from", "to"}));
    EXPECT_EQ(Names("to"), List{"b.txt"});
}

TEST_P(FileSystemConformance, CopyTreeIntoAFolderThatCannotBeEnteredIsRefused) {
    disk().MakeFile("from\\a.txt", "1");
    disk().MakeFile("to\\b.txt", "2");
    if (!disk().MakeUnreadable("to")) GTEST_SKIP() << "not on this disk or for this user";
    EXPECT_EQ(NumberOf(CopyTree("from", "to", true)), kPermissionDenied);
    EXPECT_EQ(NumberOf(Copy("from\\a.txt", "to\\a.txt")), kPermissionDenied);
}

TEST_P(FileSystemConformance, CopyTreeMergesIntoAnExistingFolder) {
    disk().MakeFile("from\\a.txt", "new");
    disk().MakeFile("from\\inner\\b.txt", "new");
    disk().MakeFile("to\\c.txt", "old");
    disk().MakeFile("to\\inner\\d.txt", "old");
    ASSERT_TRUE(CopyTree("from", "TO"));
    EXPECT_EQ(Names("to"), (List{"a.txt", "c.txt", "inner"}));
    EXPECT_EQ(Names("to\\inner"), (List{"b.txt", "d.txt"}));
    EXPECT_EQ(TextOf("to\\c.txt"), "old");
}

TEST_P(FileSystemConformance, CopyTreeOverwritesOnlyWhenTold) {
    disk().MakeFile("from\\a.txt", "new");
    disk().MakeFile("to\\a.txt", "old");
    EXPECT_EQ(NumberOf(CopyTree("from", "to")), kAlreadyExists);
    EXPECT_EQ(TextOf("to\\a.txt"), "old");
    ASSERT_TRUE(CopyTree("from", "to", true));
    EXPECT_EQ(TextOf("to\\a.txt"), "new");
}

TEST_P(FileSystemConformance, CopyTreeNeverMergesThroughALink) {
    disk().MakeFile("from\\inner\\a.txt", "new");
    disk().MakeFile("outside\\a.txt", "old");
    disk().MakeLink("to\\inner", "outside");
    disk().MakeLink("link", "outside");
    EXPECT_EQ(NumberOf(CopyTree("from", "to")), kAlreadyExists);
    EXPECT_EQ(NumberOf(CopyTree("from", "to", true)), kPathFileAccess);
    EXPECT_EQ(NumberOf(CopyTree("from\\inner", "link", true)), kPathFileAccess);
    EXPECT_EQ(TextOf("outside\\a.txt"), "old");
}

TEST_P(FileSystemConformance, CopyTreeOntoAFileIsRefused) {
    disk().MakeFile("from\\a.txt", "new");
    disk().MakeFile("to", "old");
    EXPECT_EQ(NumberOf(CopyTree("from", "to")), kAlreadyExists);
    EXPECT_EQ(NumberOf(CopyTree("from", "to", true)), kPathFileAccess);
    EXPECT_EQ(TextOf("to"), "old");
}

TEST_P(FileSystemConformance, CopyTreeWithAFileWhereTheTargetHasAFolderIsRefused) {
    disk().MakeFile("from\\a", "new");
    disk().MakeFile("to\\a\\b", "old");
    EXPECT_EQ(NumberOf(CopyTree("from", "to", true)), kPathFileAccess);
    EXPECT_EQ(TextOf("to\\a\\b"), "old");
}

TEST_P(FileSystemConformance, CopyTreeIntoItselfIsRefused) {
    disk().MakeFile("from\\inner\\a.txt", "1");
    disk().MakeLink("link", "from");
    EXPECT_EQ(NumberOf(CopyTree("from", "from", true)), kPathFileAccess);
    EXPECT_EQ(NumberOf(CopyTree("from", "FROM", true)), kPathFileAccess);
    EXPECT_EQ(NumberOf(CopyTree("from", "from\\copy")), kPathFileAccess);
    EXPECT_EQ(NumberOf(CopyTree("from", "From\\inner\\copy")), kPathFileAccess);
    if (!disk().IsRehearsal()) {
        EXPECT_EQ(NumberOf(CopyTree("from", "link\\copy")), kPathFileAccess);
    }
    EXPECT_EQ(Names("from"), List{"inner"});
    EXPECT_EQ(Names("from\\inner"), List{"a.txt"});
}

TEST_P(FileSystemConformance, CopyTreeBesideAFolderOfALikeNameIsNoCopyIntoItself) {
    disk().MakeFile("from\\a.txt", "1");
    ASSERT_TRUE(CopyTree("from", "from 2"));
    EXPECT_EQ(TextOf("from 2\\a.txt"), "1");
}

TEST_P(FileSystemConformance, CopyTreeOfWhatIsMissing) {
    disk().MakeFile("a.txt", "1");
    disk().MakeFolder("from");
    EXPECT_EQ(NumberOf(CopyTree("missing", "to")), kPathNotFound);
    EXPECT_EQ(NumberOf(CopyTree("a.txt", "to")), kPathNotFound);
    EXPECT_EQ(NumberOf(CopyTree("from", "missing\\to")), kPathNotFound);
    EXPECT_EQ(Names(""), (List{"a.txt", "from"}));
}

TEST_P(FileSystemConformance, CopyTreeSkipsSpecialFilesAndTellsOfThemAfterTheRest) {
    disk().MakeFile("from\\a.txt", "1");
    if (!disk().MakeFifo("from\\b pipe")) GTEST_SKIP() << "not on this disk";
    disk().MakeFile("from\\c.txt", "3");
    EXPECT_EQ(NumberOf(CopyTree("from", "to")), kPathFileAccess);
    EXPECT_EQ(Names("to"), (List{"a.txt", "c.txt"}));
}

TEST_P(FileSystemConformance, AnAbandonedCopyTreeLeavesOnlyWholeFiles) {
    disk().MakeFile("from\\a.txt", "whole");
    disk().MakeFile("from\\b.txt", "second");
    disk().MakeFolder("to");
    int calls = 0;
    const auto observer = [&](const CopyProgress& progress) {
        ++calls;
        return progress.path != At("from\\b.txt");
    };
    EXPECT_EQ(NumberOf(files().CopyFolder(At("from"), At("to"), false, observer)), kInterrupted);
    EXPECT_GE(calls, 2);
    EXPECT_EQ(Names("to"), List{"a.txt"});
    EXPECT_EQ(TextOf("to\\a.txt"), "whole");
}

TEST_P(FileSystemConformance, CopyTreeTellsTotalsOfTheWholeFolderOnceTheyAreKnown) {
    disk().MakeFile("from\\a.txt", "12345");
    disk().MakeFile("from\\inner\\b.txt", "123");
    std::uint64_t last = 0;
    const auto observer = [&](const CopyProgress& progress) {
        EXPECT_TRUE(progress.bytesTotal == 8 || progress.bytesTotal == 0) << progress.bytesTotal;
        EXPECT_GE(progress.bytesDone, last);
        last = progress.bytesDone;
        return true;
    };
    ASSERT_TRUE(files().CopyFolder(At("from"), At("to"), false, observer));
    EXPECT_EQ(last, 8u);
}

} // namespace tarvix::platform
