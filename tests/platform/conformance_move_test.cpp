#include "platform/short_names.h"
#include "tests/platform/conformance.h"

namespace tarvix::platform {

using List = std::vector<std::string>;

TEST_P(FileSystemConformance, MoveRenamesAFile) {
    disk().MakeFile("a.txt", "content");
    disk().SetModified("a.txt", 1'600'000'000'000'000'000);
    disk().MakeFolder("folder");
    ASSERT_TRUE(Move("a.txt", "folder\\b.txt"));
    EXPECT_EQ(Names(""), List{"folder"});
    EXPECT_EQ(TextOf("folder\\b.txt"), "content");
    EXPECT_EQ(files().Facts(At("folder\\b.txt"))->modified, 1'600'000'000'000'000'000);
}

TEST_P(FileSystemConformance, MoveNeverReplaces) {
    disk().MakeFile("a.txt", "a");
    disk().MakeFile("b.txt", "b");
    disk().MakeFolder("folder");
    disk().MakeLink("link", "missing");
    for (const char* target : {"b.txt", "B.TXT", "folder", "link", "a.txt"}) {
        EXPECT_EQ(NumberOf(Move("a.txt", target)), kAlreadyExists) << target;
    }
    EXPECT_EQ(TextOf("a.txt"), "a");
    EXPECT_EQ(TextOf("b.txt"), "b");
    EXPECT_EQ(Names(""), (List{"a.txt", "b.txt", "folder", "link"}));
}

TEST_P(FileSystemConformance, MoveMayChangeOnlyTheCase) {
    disk().MakeFile("song.mp3", "1");
    disk().MakeFile("folder\\a", "2");
    ASSERT_TRUE(Move("song.mp3", "SONG.mp3"));
    ASSERT_TRUE(MoveTree("folder", "Folder"));
    EXPECT_EQ(Names(""), (List{"Folder", "SONG.mp3"}));
    EXPECT_EQ(TextOf("Folder\\a"), "2");
}

TEST_P(FileSystemConformance, MoveToAnotherCaseOfAnotherFileIsRefused) {
    disk().MakeFile("song.mp3", "1");
    disk().MakeFile("SONG.mp3", "2");
    EXPECT_EQ(NumberOf(Move("song.mp3", "Song.mp3")), kAlreadyExists);
    EXPECT_EQ(NumberOf(Move("SONG.mp3", "Song.mp3")), kAlreadyExists);
    EXPECT_EQ(Names(""), (List{"SONG.mp3", "song.mp3"}));
}

TEST_P(FileSystemConformance, MoveOfWhatIsMissing) {
    disk().MakeFolder("folder");
    EXPECT_EQ(NumberOf(Move("missing", "b")), kFileNotFound);
    EXPECT_EQ(NumberOf(Move("missing\\a", "b")), kPathNotFound);
    EXPECT_EQ(NumberOf(Move("folder", "b")), kFileNotFound);
    EXPECT_EQ(NumberOf(MoveTree("missing", "b")), kPathNotFound);
    EXPECT_EQ(Names(""), List{"folder"});
}

TEST_P(FileSystemConformance, MoveIntoAMissingFolderGives76) {
    disk().MakeFile("a.txt", "1");
    disk().MakeFile("folder\\b.txt", "2");
    EXPECT_EQ(NumberOf(Move("a.txt", "missing\\a.txt")), kPathNotFound);
    EXPECT_EQ(NumberOf(Move("a.txt", "a.txt\\a.txt")), kPathNotFound);
    EXPECT_EQ(NumberOf(MoveTree("folder", "missing\\folder")), kPathNotFound);
    EXPECT_EQ(TextOf("a.txt"), "1");
    EXPECT_EQ(TextOf("folder\\b.txt"), "2");
}

TEST_P(FileSystemConformance, MoveOfALinkMovesTheLink) {
    disk().MakeFile("a.txt", "1");
    disk().MakeFile("folder\\b.txt", "2");
    disk().MakeLink("to file", "a.txt");
    disk().MakeLink("to folder", "folder");
    ASSERT_TRUE(Move("to file", "moved 1"));
    ASSERT_TRUE(Move("to folder", "moved 2"));
    ASSERT_TRUE(MoveTree("moved 2", "moved 3"));
    EXPECT_EQ(Names(""), (List{"a.txt", "folder", "moved 1", "moved 3"}));
    EXPECT_NE(AttributesOf("moved 1") & kAlias, 0u);
    EXPECT_NE(AttributesOf("moved 3") & kAlias, 0u);
    EXPECT_EQ(Names("folder"), List{"b.txt"});
}

TEST_P(FileSystemConformance, MoveTakesReadOnlyFiles) {
    disk().MakeFile("a.txt", "1");
    disk().SetReadOnly("a.txt");
    ASSERT_TRUE(Move("a.txt", "b.txt"));
    EXPECT_NE(AttributesOf("b.txt") & kReadOnly, 0u);
}

TEST_P(FileSystemConformance, MoveThroughAShortPathMovesTheLongName) {
    disk().MakeFile("A long name.text", "1");
    ASSERT_TRUE(Move(ShortNameOf("A long name.text"), "b.txt"));
    EXPECT_EQ(Names(""), List{"b.txt"});
}

TEST_P(FileSystemConformance, MoveToItsOwnShortNameIsRefused) {
    disk().MakeFile("A long name.text", "1");
    disk().MakeFolder("A long folder name");
    EXPECT_EQ(NumberOf(Move("A long name.text", ShortNameOf("A long name.text"))), kAlreadyExists);
    EXPECT_EQ(NumberOf(MoveTree("A long folder name", ShortNameOf("A long folder name"))),
              kAlreadyExists);
    EXPECT_EQ(Names(""), (List{"A long folder name", "A long name.text"}));
}

TEST_P(FileSystemConformance, MoveMakesHiddenByALeadingDotOnly) {
    disk().MakeFile(".a", "1");
    disk().MakeFile("b", "2");
    ASSERT_TRUE(Move(".a", "a"));
    ASSERT_TRUE(Move("b", ".b"));
    EXPECT_EQ(AttributesOf("a") & kHidden, 0u);
    EXPECT_NE(AttributesOf(".b") & kHidden, 0u);
}

TEST_P(FileSystemConformance, MoveTreeOfADriveIsRefused) {
    const std::string drive = Root().substr(0, 2) + "\\";
    EXPECT_EQ(NumberOf(files().MoveFolder(drive, At("folder"))), kPermissionDenied);
    EXPECT_TRUE(Names("").empty());
}

TEST_P(FileSystemConformance, MoveTreeMovesAllThatIsInIt) {
    disk().MakeFile("from\\inner\\a.txt", "1");
    disk().MakeFolder("other");
    ASSERT_TRUE(MoveTree("from", "other\\to"));
    EXPECT_EQ(Names(""), List{"other"});
    EXPECT_EQ(TextOf("other\\to\\inner\\a.txt"), "1");
}

TEST_P(FileSystemConformance, MoveTreeNeverReplacesNorMerges) {
    disk().MakeFile("from\\a.txt", "1");
    disk().MakeFile("to\\b.txt", "2");
    disk().MakeFolder("empty");
    disk().MakeFile("file", "3");
    for (const char* target : {"to", "TO", "empty", "file", "from"}) {
        EXPECT_EQ(NumberOf(MoveTree("from", target)), kAlreadyExists) << target;
    }
    EXPECT_EQ(Names("from"), List{"a.txt"});
    EXPECT_EQ(Names("to"), List{"b.txt"});
    EXPECT_TRUE(Names("empty").empty());
}

TEST_P(FileSystemConformance, MoveTreeIntoItselfIsRefused) {
    disk().MakeFile("from\\inner\\a.txt", "1");
    EXPECT_EQ(NumberOf(MoveTree("from", "from\\to")), kPathFileAccess);
    EXPECT_EQ(NumberOf(MoveTree("from", "FROM\\inner\\to")), kPathFileAccess);
    EXPECT_EQ(TextOf("from\\inner\\a.txt"), "1");
}

TEST_P(FileSystemConformance, MoveTreeOfAFileGives76) {
    disk().MakeFile("a.txt", "1");
    EXPECT_EQ(NumberOf(MoveTree("a.txt", "b.txt")), kPathNotFound);
    EXPECT_EQ(Names(""), List{"a.txt"});
}

TEST_P(FileSystemConformance, DeleteRemovesAFile) {
    disk().MakeFile("a.txt", "1");
    disk().MakeFile("b.txt", "2");
    ASSERT_TRUE(files().DeleteFile(At("a.txt"), false));
    EXPECT_EQ(Names(""), List{"b.txt"});
}

TEST_P(FileSystemConformance, DeleteOfAReadOnlyFileNeedsForce) {
    disk().MakeFile("a.txt", "1");
    disk().SetReadOnly("a.txt");
    EXPECT_EQ(NumberOf(files().DeleteFile(At("a.txt"), false)), kPermissionDenied);
    EXPECT_EQ(TextOf("a.txt"), "1");
    EXPECT_TRUE(files().DeleteFile(At("a.txt"), true));
    EXPECT_TRUE(Names("").empty());
}

TEST_P(FileSystemConformance, DeleteOfALinkLeavesItsTarget) {
    disk().MakeFile("a.txt", "1");
    disk().MakeFile("folder\\b.txt", "2");
    disk().SetReadOnly("a.txt");
    disk().MakeLink("to file", "a.txt");
    disk().MakeLink("to folder", "folder");
    disk().MakeLink("to nothing", "missing");
    for (const char* link : {"to file", "to folder", "to nothing"}) {
        EXPECT_TRUE(files().DeleteFile(At(link), false)) << link;
    }
    EXPECT_EQ(Names(""), (List{"a.txt", "folder"}));
    EXPECT_EQ(Names("folder"), List{"b.txt"});
}

TEST_P(FileSystemConformance, DeleteOfWhatIsMissingOrAFolderGives53) {
    disk().MakeFolder("folder");
    EXPECT_EQ(NumberOf(files().DeleteFile(At("missing"), true)), kFileNotFound);
    EXPECT_EQ(NumberOf(files().DeleteFile(At("missing\\a"), true)), kPathNotFound);
    EXPECT_EQ(NumberOf(files().DeleteFile(At("folder"), true)), kFileNotFound);
    EXPECT_EQ(Names(""), List{"folder"});
}

TEST_P(FileSystemConformance, RemoveFolderTakesEmptyFoldersOnly) {
    disk().MakeFolder("empty");
    disk().MakeFile("full\\.hidden", "1");
    EXPECT_TRUE(files().RemoveFolder(At("empty\\")));
    EXPECT_EQ(NumberOf(files().RemoveFolder(At("full"))), kPathFileAccess);
    EXPECT_EQ(Names(""), List{"full"});
    EXPECT_EQ(TextOf("full\\.hidden"), "1");
}

TEST_P(FileSystemConformance, RemoveFolderLeavesLinksAndFiles) {
    disk().MakeFolder("folder");
    disk().MakeFile("a.txt", "1");
    disk().MakeLink("link", "folder");
    EXPECT_EQ(NumberOf(files().RemoveFolder(At("link"))), kPathFileAccess);
    EXPECT_EQ(NumberOf(files().RemoveFolder(At("a.txt"))), kPathNotFound);
    EXPECT_EQ(NumberOf(files().RemoveFolder(At("missing"))), kPathNotFound);
    EXPECT_EQ(Names(""), (List{"a.txt", "folder", "link"}));
}

TEST_P(FileSystemConformance, RemoveFolderLeavesWhatItCannotList) {
    disk().MakeFile("folder\\a.txt", "1");
    if (!disk().MakeUnreadable("folder")) GTEST_SKIP() << "not on this disk or for this user";
    EXPECT_EQ(NumberOf(files().RemoveFolder(At("folder"))), kPathFileAccess);
    EXPECT_TRUE(Exists("folder"));
}

TEST_P(FileSystemConformance, CreateFolderMakesOneFolder) {
    ASSERT_TRUE(files().CreateFolder(At("New folder")));
    ASSERT_TRUE(files().CreateFolder(At("New folder\\inner\\")));
    EXPECT_EQ(AttributesOf("New folder\\inner") & (kFolder | kReadOnly), std::uint32_t{kFolder});
    EXPECT_EQ(NumberOf(files().CreateFolder(At("missing\\inner"))), kPathNotFound);
    EXPECT_EQ(Names(""), List{"New folder"});
}

TEST_P(FileSystemConformance, CreateFolderOverAnythingGives75) {
    disk().MakeFolder("folder");
    disk().MakeFile("a.txt", "1");
    disk().MakeLink("link", "missing");
    for (const char* name : {"folder", "FOLDER", "a.txt", "link"}) {
        EXPECT_EQ(NumberOf(files().CreateFolder(At(name))), kPathFileAccess) << name;
    }
    EXPECT_EQ(NumberOf(files().CreateFolder(At("a.txt\\inner"))), kPathNotFound);
    EXPECT_EQ(NumberOf(files().CreateFolder(Root().substr(0, 2) + "\\")), kPathFileAccess);
    EXPECT_EQ(TextOf("a.txt"), "1");
}

TEST_P(FileSystemConformance, AFolderThatVanishedGives76) {
    disk().MakeFile("a.txt", "1");
    disk().MakeFolder("folder");
    ASSERT_TRUE(Exists("folder"));
    ASSERT_TRUE(files().RemoveFolder(At("folder")));
    EXPECT_EQ(NumberOf(Copy("a.txt", "folder\\a.txt")), kPathNotFound);
    EXPECT_EQ(NumberOf(Move("a.txt", "folder\\a.txt")), kPathNotFound);
    EXPECT_EQ(TextOf("a.txt"), "1");
}

} // namespace tarvix::platform
