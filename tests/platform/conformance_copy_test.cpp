#include "tests/platform/conformance.h"

#include <algorithm>

namespace tarvix::platform {

using List = std::vector<std::string>;

TEST_P(FileSystemConformance, CopyKeepsContentAndTime) {
    disk().MakeFile("a.txt", "content");
    disk().SetModified("a.txt", 1'600'000'000'123'456'700);
    ASSERT_TRUE(Copy("a.txt", "b.txt"));
    EXPECT_EQ(TextOf("a.txt"), "content");
    EXPECT_EQ(TextOf("b.txt"), "content");
    EXPECT_EQ(files().Facts(At("b.txt"))->modified, 1'600'000'000'123'456'700);
    EXPECT_EQ(Names(""), (List{"a.txt", "b.txt"}));
}

TEST_P(FileSystemConformance, CopyKeepsReadOnly) {
    disk().MakeFile("a.txt", "content");
    disk().SetReadOnly("a.txt");
    ASSERT_TRUE(Copy("a.txt", "b.txt"));
    EXPECT_NE(AttributesOf("b.txt") & kReadOnly, 0u);
    EXPECT_NE(AttributesOf("a.txt") & kReadOnly, 0u);
}

TEST_P(FileSystemConformance, CopyKeepsExtendedAttributes) {
    disk().MakeFile("a.txt", "content");
    if (!disk().SetExtendedAttribute("a.txt", "user.mark", "five stars")) {
        GTEST_SKIP() << "not on this disk";
    }
    ASSERT_TRUE(Copy("a.txt", "b.txt"));
    EXPECT_EQ(disk().ExtendedAttribute("b.txt", "user.mark"), "five stars");
}

TEST_P(FileSystemConformance, CopyOfAnEmptyFile) {
    disk().MakeFile("a.txt", "");
    ASSERT_TRUE(Copy("a.txt", "b.txt"));
    EXPECT_EQ(TextOf("b.txt"), "");
}

TEST_P(FileSystemConformance, CopyOfAFileOfManyBlocks) {
    std::string content;
    for (int i = 0; content.size() < 5'000'000; ++i)
        content += std::to_string(i) + "\n";
    disk().MakeFile("a.bin", content);
    ASSERT_TRUE(Copy("a.bin", "b.bin"));
    EXPECT_TRUE(TextOf("b.bin") == content);
}

TEST_P(FileSystemConformance, CopyToAnotherFolder) {
    disk().MakeFile("a.txt", "content");
    disk().MakeFolder("folder");
    ASSERT_TRUE(Copy("a.txt", "folder\\a.txt"));
    EXPECT_EQ(TextOf("folder\\a.txt"), "content");
}

TEST_P(FileSystemConformance, CopyOfWhatIsMissing) {
    disk().MakeFolder("folder");
    EXPECT_EQ(NumberOf(Copy("missing", "b.txt")), kFileNotFound);
    EXPECT_EQ(NumberOf(Copy("missing\\a.txt", "b.txt")), kPathNotFound);
    EXPECT_EQ(NumberOf(Copy("folder", "b.txt")), kFileNotFound);
    EXPECT_EQ(Names(""), List{"folder"});
}

TEST_P(FileSystemConformance, CopyIntoAMissingFolderGives76) {
    disk().MakeFile("a.txt", "content");
    EXPECT_EQ(NumberOf(Copy("a.txt", "missing\\a.txt")), kPathNotFound);
    EXPECT_EQ(NumberOf(Copy("a.txt", "a.txt\\b.txt")), kPathNotFound);
    EXPECT_EQ(Names(""), List{"a.txt"});
}

TEST_P(FileSystemConformance, CopyOntoAFileNeedsOverwrite) {
    disk().MakeFile("a.txt", "new");
    disk().MakeFile("b.txt", "old");
    EXPECT_EQ(NumberOf(Copy("a.txt", "b.txt")), kAlreadyExists);
    EXPECT_EQ(TextOf("b.txt"), "old");
    ASSERT_TRUE(Copy("a.txt", "b.txt", true));
    EXPECT_EQ(TextOf("b.txt"), "new");
    EXPECT_EQ(Names(""), (List{"a.txt", "b.txt"}));
}

TEST_P(FileSystemConformance, CopyWithOverwriteNeedsNoTarget) {
    disk().MakeFile("a.txt", "new");
    ASSERT_TRUE(Copy("a.txt", "b.txt", true));
    EXPECT_EQ(TextOf("b.txt"), "new");
}

TEST_P(FileSystemConformance, CopyOntoANameInOtherCaseIsACopyOntoThatFile) {
    disk().MakeFile("a.txt", "new");
    disk().MakeFile("B.TXT", "old");
    EXPECT_EQ(NumberOf(Copy("a.txt", "b.txt")), kAlreadyExists);
    ASSERT_TRUE(Copy("a.txt", "b.txt", true));
    EXPECT_EQ(TextOf("B.TXT"), "new");
    EXPECT_EQ(Names(""), (List{"B.TXT", "a.txt"}));
}

TEST_P(FileSystemConformance, CopyOntoAReadOnlyFileIsRefused) {
    disk().MakeFile("a.txt", "new");
    disk().MakeFile("b.txt", "old");
    disk().SetReadOnly("b.txt");
    EXPECT_EQ(NumberOf(Copy("a.txt", "b.txt", true)), kPermissionDenied);
    EXPECT_EQ(TextOf("b.txt"), "old");
    EXPECT_EQ(Names(""), (List{"a.txt", "b.txt"}));
}

TEST_P(FileSystemConformance, CopyOntoAFolderIsRefused) {
    disk().MakeFile("a.txt", "new");
    disk().MakeFile("folder\\b.txt", "old");
    disk().MakeLink("link", "folder");
    EXPECT_EQ(NumberOf(Copy("a.txt", "folder")), kAlreadyExists);
    EXPECT_EQ(NumberOf(Copy("a.txt", "folder", true)), kPathFileAccess);
    EXPECT_EQ(NumberOf(Copy("a.txt", "link", true)), kPathFileAccess);
    EXPECT_EQ(Names("folder"), List{"b.txt"});
}

TEST_P(FileSystemConformance, CopyOntoItselfIsRefused) {
    disk().MakeFile("a.txt", "content");
    disk().MakeFile("folder\\b.txt", "inner");
    disk().MakeLink("link", "folder");
    EXPECT_EQ(NumberOf(Copy("a.txt", "a.txt")), kAlreadyExists);
    EXPECT_EQ(NumberOf(Copy("a.txt", "a.txt", true)), kPathFileAccess);
    EXPECT_EQ(NumberOf(Copy("a.txt", "A.TXT", true)), kPathFileAccess);
    if (!disk().IsRehearsal()) {
        EXPECT_EQ(NumberOf(Copy("folder\\b.txt", "link\\b.txt", true)), kPathFileAccess);
    }
    EXPECT_EQ(TextOf("a.txt"), "content");
    EXPECT_EQ(TextOf("folder\\b.txt"), "inner");
}

TEST_P(FileSystemConformance, CopyOntoALinkReplacesTheLinkAndNotItsTarget) {
    disk().MakeFile("a.txt", "new");
    disk().MakeFile("target.txt", "target");
    disk().MakeLink("link", "target.txt");
    EXPECT_EQ(NumberOf(Copy("a.txt", "link")), kAlreadyExists);
    ASSERT_TRUE(Copy("a.txt", "link", true));
    EXPECT_EQ(TextOf("target.txt"), "target");
    EXPECT_EQ(TextOf("link"), "new");
    EXPECT_EQ(AttributesOf("link") & kAlias, 0u);
}

TEST_P(FileSystemConformance, CopyOntoADanglingLinkNeedsOverwrite) {
    disk().MakeFile("a.txt", "new");
    disk().MakeLink("link", "missing");
    EXPECT_EQ(NumberOf(Copy("a.txt", "link")), kAlreadyExists);
    ASSERT_TRUE(Copy("a.txt", "link", true));
    EXPECT_FALSE(Exists("missing"));
    EXPECT_EQ(TextOf("link"), "new");
}

TEST_P(FileSystemConformance, CopyOfALinkIsALink) {
    disk().MakeFile("a.txt", "content");
    disk().MakeFolder("folder");
    disk().MakeLink("to file", "a.txt");
    disk().MakeLink("to folder", "folder");
    disk().MakeLink("to nothing", "missing");
    ASSERT_TRUE(Copy("to file", "copy 1"));
    ASSERT_TRUE(Copy("to folder", "copy 2"));
    ASSERT_TRUE(Copy("to nothing", "copy 3"));
    EXPECT_EQ(AttributesOf("copy 1") & (kAlias | kFolder), std::uint32_t{kAlias});
    EXPECT_EQ(AttributesOf("copy 2") & (kAlias | kFolder), std::uint32_t{kAlias | kFolder});
    EXPECT_EQ(AttributesOf("copy 3") & (kAlias | kFolder), std::uint32_t{kAlias});
    EXPECT_EQ(*files().ReadBytes(At("copy 1"), 0, 100), "content");
}

TEST_P(FileSystemConformance, CopyOfASpecialFileIsRefused) {
    if (!disk().MakeFifo("pipe")) GTEST_SKIP() << "not on this disk";
    EXPECT_EQ(NumberOf(Copy("pipe", "copy")), kPathFileAccess);
    EXPECT_EQ(Names(""), List{"pipe"});
}

TEST_P(FileSystemConformance, CopyOntoASpecialFileIsRefused) {
    if (!disk().MakeFifo("pipe")) GTEST_SKIP() << "not on this disk";
    disk().MakeFile("a.txt", "content");
    EXPECT_EQ(NumberOf(Copy("a.txt", "pipe", true)), kPathFileAccess);
    EXPECT_NE(AttributesOf("pipe") & kSpecial, 0u);
}

TEST_P(FileSystemConformance, CopyTellsHowFarItIs) {
    disk().MakeFile("a.bin", std::string(20'000'000, 'x'));
    std::vector<std::uint64_t> done;
    const auto observer = [&](const CopyProgress& progress) {
        EXPECT_EQ(progress.bytesTotal, 20'000'000u);
        EXPECT_EQ(progress.path, At("a.bin"));
        done.push_back(progress.bytesDone);
        return true;
    };
    ASSERT_TRUE(files().CopyFile(At("a.bin"), At("b.bin"), false, observer));
    ASSERT_FALSE(done.empty());
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
    EXPECT_LE(done.back(), 20'000'000u);
}

TEST_P(FileSystemConformance, AnAbandonedCopyLeavesNothing) {
    disk().MakeFile("a.bin", std::string(20'000'000, 'x'));
    const auto no = [](const CopyProgress&) { return false; };
    EXPECT_EQ(NumberOf(files().CopyFile(At("a.bin"), At("b.bin"), false, no)), kInterrupted);
    EXPECT_EQ(Names(""), List{"a.bin"});
}

TEST_P(FileSystemConformance, AnAbandonedCopyLeavesTheFileItWouldHaveReplaced) {
    disk().MakeFile("a.bin", std::string(20'000'000, 'x'));
    disk().MakeFile("b.bin", "old");
    const auto no = [](const CopyProgress&) { return false; };
    EXPECT_EQ(NumberOf(files().CopyFile(At("a.bin"), At("b.bin"), true, no)), kInterrupted);
    EXPECT_EQ(TextOf("b.bin"), "old");
    EXPECT_EQ(Names(""), (List{"a.bin", "b.bin"}));
}

TEST_P(FileSystemConformance, AFileThatAppearsDuringACopyIsNotReplaced) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "not on this disk";
    disk().MakeFile("a.bin", std::string(20'000'000, 'x'));
    const auto rival = [&](const CopyProgress&) {
        if (!Exists("b.bin")) disk().MakeFile("b.bin", "rival");
        return true;
    };
    EXPECT_EQ(NumberOf(files().CopyFile(At("a.bin"), At("b.bin"), false, rival)), kAlreadyExists);
    EXPECT_EQ(TextOf("b.bin"), "rival");
    EXPECT_EQ(Names(""), (List{"a.bin", "b.bin"}));
}

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

TEST_P(FileSystemConformance, CopyTreeTellsTotalsOfTheWholeFolder) {
    disk().MakeFile("from\\a.txt", "12345");
    disk().MakeFile("from\\inner\\b.txt", "123");
    std::uint64_t last = 0;
    const auto observer = [&](const CopyProgress& progress) {
        EXPECT_EQ(progress.bytesTotal, 8u);
        EXPECT_GE(progress.bytesDone, last);
        last = progress.bytesDone;
        return true;
    };
    ASSERT_TRUE(files().CopyFolder(At("from"), At("to"), false, observer));
    EXPECT_EQ(last, 8u);
}

} // namespace tarvix::platform
