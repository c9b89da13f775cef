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
    EXPECT_EQ(NumberOf(Copy("pipe", "missing\\copy")), kPathFileAccess);
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

TEST_P(FileSystemConformance, CopyTellsOfTheFileByThePathThatWasGiven) {
    disk().MakeFile("Song.mp3", "x");
    std::string told;
    const auto observer = [&](const CopyProgress& progress) {
        told = progress.path;
        return true;
    };
    ASSERT_TRUE(files().CopyFile(At("SONG.MP3"), At("copy"), false, observer));
    EXPECT_EQ(told, At("SONG.MP3"));
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

} // namespace tarvix::platform
