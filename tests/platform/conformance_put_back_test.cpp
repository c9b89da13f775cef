// What comes back from the trash.

#include "tests/platform/conformance.h"

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;
using Numbers = std::vector<int>;
} // namespace

TEST_P(FileSystemConformance, TakenObjectsAreCountedInTheOrderTheyWent) {
    for (const char* name : {"a", "b", "c"})
        disk().MakeFile(name, name);
    EXPECT_EQ(disk().Bin().Taken(), 0u);
    ASSERT_TRUE(Recycle({"b", "a"}));
    EXPECT_EQ(disk().Bin().Taken(), 2u);
    ASSERT_FALSE(Recycle({"missing", "c"}));
    EXPECT_EQ(disk().Bin().Taken(), 2u);
    ASSERT_TRUE(Recycle({"c"}));
    EXPECT_EQ(disk().Bin().Taken(), 3u);
    EXPECT_EQ(PutBack({3}), Numbers{kFileNotFound});
}

TEST_P(FileSystemConformance, ARehearsalPutsNothingBack) {
    if (!disk().IsRehearsal()) GTEST_SKIP() << "for a rehearsal";
    disk().MakeFile("a", "1");
    ASSERT_TRUE(Recycle({"a"}));
    EXPECT_EQ(PutBack({0}), Numbers{kFileNotFound});
    EXPECT_EQ(Names(""), List{});
}

TEST_P(FileSystemConformance, ManyArePutBackInAnyOrder) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    for (const char* name : {"a", "b", "sub\\c", "sub\\d", "e"})
        disk().MakeFile(name, name);
    ASSERT_TRUE(Recycle({"a", "b", "sub\\c"}));
    ASSERT_TRUE(Recycle({"sub\\d", "e"}));
    EXPECT_EQ(PutBack({2, 4, 0, 3}), (Numbers{0, 0, 0, 0}));
    EXPECT_EQ(disk().Trashed(), List{"b"});
    EXPECT_EQ(Names(""), (List{"a", "e", "sub"}));
    EXPECT_EQ(Names("sub"), (List{"c", "d"}));
    EXPECT_EQ(TextOf("sub\\c"), "sub\\c");
    EXPECT_TRUE(Exists("sub\\D"));
    // Each only once.
    EXPECT_EQ(PutBack({1, 1, 0}), (Numbers{0, kFileNotFound, kFileNotFound}));
    EXPECT_EQ(TextOf("b"), "b");
    EXPECT_EQ(TextOf("a"), "a");
    EXPECT_EQ(disk().Trashed(), List{});
}

TEST_P(FileSystemConformance, WhatIsPutBackIsWhatItWas) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("a.txt", "content");
    disk().SetModified("a.txt", 1'600'000'000'000'000'000);
    disk().MakeFile("folder\\inner\\b.txt", "2");
    disk().MakeFile("read only", "3");
    disk().SetReadOnly("read only");
    ASSERT_TRUE(Recycle({"a.txt", "folder", "read only"}));
    EXPECT_EQ(PutBack({2, 1, 0}), (Numbers{0, 0, 0}));
    EXPECT_EQ(TextOf("a.txt"), "content");
    EXPECT_EQ(files().Facts(At("a.txt"))->modified, 1'600'000'000'000'000'000);
    EXPECT_EQ(TextOf("folder\\inner\\b.txt"), "2");
    EXPECT_NE(AttributesOf("read only") & kReadOnly, 0u);
}

TEST_P(FileSystemConformance, AFolderAndWhatWasInItComeBackTheOtherWayRound) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("folder\\a.txt", "a");
    disk().MakeFile("folder\\b.txt", "b");
    ASSERT_TRUE(Recycle({"folder\\a.txt", "folder"}));
    EXPECT_EQ(PutBack({0}), Numbers{kPathNotFound});
    EXPECT_EQ(disk().Trashed(), (List{"folder", "folder\\a.txt"}));
    EXPECT_EQ(PutBack({1, 0}), (Numbers{0, 0}));
    EXPECT_EQ(Names("folder"), (List{"a.txt", "b.txt"}));
    EXPECT_EQ(TextOf("folder\\a.txt"), "a");
}

TEST_P(FileSystemConformance, OfOnePathEachIsPutBackByItsNumber) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    for (const char* content : {"first", "second"}) {
        disk().MakeFile("a.txt", content);
        ASSERT_TRUE(Recycle({"a.txt"}));
    }
    EXPECT_EQ(PutBack({0}), Numbers{0});
    EXPECT_EQ(TextOf("a.txt"), "first");
    EXPECT_EQ(PutBack({1}), Numbers{kAlreadyExists});
    EXPECT_EQ(TextOf("a.txt"), "first");
    ASSERT_TRUE(Move("a.txt", "b.txt"));
    EXPECT_EQ(PutBack({1}), Numbers{0});
    EXPECT_EQ(TextOf("a.txt"), "second");
    EXPECT_EQ(TextOf("b.txt"), "first");
}

TEST_P(FileSystemConformance, WhatLeftTheTrashIsNotPutBack) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    for (const char* name : {"a", "b"})
        disk().MakeFile(name, name);
    disk().MakeFile("folder\\c", "c");
    ASSERT_TRUE(Recycle({"a", "folder", "b"}));
    ASSERT_TRUE(disk().LoseTrashed("a"));
    ASSERT_TRUE(disk().LoseTrashed("folder"));
    EXPECT_EQ(PutBack({0, 1, 2}), (Numbers{kFileNotFound, kFileNotFound, 0}));
    EXPECT_EQ(Names(""), List{"b"});
}

TEST_P(FileSystemConformance, WhatOthersRestoredIsNotPutBackOnceMore) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("a", "1");
    ASSERT_TRUE(Recycle({"a"}));
    ASSERT_TRUE(disk().Restore("a"));
    EXPECT_EQ(PutBack({0}), Numbers{kFileNotFound});
    EXPECT_EQ(TextOf("a"), "1");
}

TEST_P(FileSystemConformance, AnotherObjectUnderItsNameInTheTrashStaysThere) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("a", "mine");
    ASSERT_TRUE(Recycle({"a"}));
    if (!disk().ExchangeTrashed("a", "theirs")) GTEST_SKIP() << "not on this disk";
    EXPECT_EQ(PutBack({0}), Numbers{kFileNotFound});
    EXPECT_EQ(Names(""), List{});
    EXPECT_EQ(disk().Trashed(), List{"a"});
}

TEST_P(FileSystemConformance, WhatIsPutBackReplacesNothing) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("a", "old");
    disk().MakeFile("folder\\b", "old");
    disk().MakeFile("c", "old");
    ASSERT_TRUE(Recycle({"a", "folder", "c"}));
    disk().MakeFile("a", "theirs");
    disk().MakeFolder("folder");
    disk().MakeLink("c", "missing");
    EXPECT_EQ(PutBack({0, 1, 2}), (Numbers{kAlreadyExists, kAlreadyExists, kAlreadyExists}));
    EXPECT_EQ(TextOf("a"), "theirs");
    EXPECT_EQ(Names("folder"), List{});
    EXPECT_EQ(disk().Trashed(), (List{"a", "c", "folder"}));
    // When it has gone the way is free.
    ASSERT_TRUE(files().RemoveFolder(At("folder")));
    EXPECT_EQ(PutBack({1}), Numbers{0});
    EXPECT_EQ(TextOf("folder\\b"), "old");
}

TEST_P(FileSystemConformance, WithoutItsFolderNothingIsPutBack) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("sub\\inner\\a", "1");
    disk().MakeFile("other\\b", "2");
    ASSERT_TRUE(Recycle({"sub\\inner\\a", "other\\b"}));
    ASSERT_TRUE(files().RemoveFolder(At("sub\\inner")));
    ASSERT_TRUE(files().RemoveFolder(At("other")));
    disk().MakeFile("other", "a file");
    EXPECT_EQ(PutBack({0, 1}), (Numbers{kPathNotFound, kPathNotFound}));
    EXPECT_EQ(disk().Trashed(), (List{"other\\b", "sub\\inner\\a"}));
    EXPECT_EQ(Names("sub"), List{});
    ASSERT_TRUE(files().CreateFolder(At("sub\\inner")));
    EXPECT_EQ(PutBack({0}), Numbers{0});
    EXPECT_EQ(TextOf("sub\\inner\\a"), "1");
}

TEST_P(FileSystemConformance, ALinkItselfIsPutBack) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("a", "content");
    disk().MakeFile("folder\\b", "content");
    disk().MakeLink("to file", "a");
    disk().MakeLink("to folder", "folder");
    disk().MakeLink("to nothing", "missing");
    ASSERT_TRUE(Recycle({"to file", "to folder", "to nothing"}));
    EXPECT_EQ(PutBack({0, 1, 2}), (Numbers{0, 0, 0}));
    EXPECT_EQ(Names(""), (List{"a", "folder", "to file", "to folder", "to nothing"}));
    for (const char* name : {"to file", "to folder", "to nothing"})
        EXPECT_NE(AttributesOf(name) & kAlias, 0u) << name;
    EXPECT_EQ(TextOf("folder\\b"), "content");
}

TEST_P(FileSystemConformance, AFolderThatTakesNoNamesGetsNothingBack) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("sub\\a", "1");
    disk().MakeFile("sub\\folder\\b", "2");
    ASSERT_TRUE(Recycle({"sub\\a", "sub\\folder"}));
    if (!disk().SetLocked("sub", true)) GTEST_SKIP() << "not on this disk";
    EXPECT_EQ(PutBack({1, 0}), (Numbers{kPermissionDenied, kPermissionDenied}));
    EXPECT_EQ(disk().Trashed(), (List{"sub\\a", "sub\\folder"}));
    EXPECT_EQ(Names("sub"), List{});
    ASSERT_TRUE(disk().SetLocked("sub", false));
    EXPECT_EQ(PutBack({1, 0}), (Numbers{0, 0}));
    EXPECT_EQ(TextOf("sub\\folder\\b"), "2");
}

TEST_P(FileSystemConformance, WhatWasReachedByALinkComesBackWhereItWas) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    disk().MakeFile("folder\\Song.mp3", "1");
    disk().MakeLink("link", "folder");
    ASSERT_TRUE(Recycle({"link\\song.MP3"}));
    EXPECT_EQ(PutBack({0}), Numbers{0});
    EXPECT_EQ(Names("folder"), List{"Song.mp3"});
    EXPECT_EQ(Names(""), (List{"folder", "link"}));
}

TEST_P(FileSystemConformance, NamesOfAnyBytesComeBack) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "keeps no trash";
    const std::string reserved = "what\xEF\x80\xBF 50% #";
    disk().MakeFile(reserved, "1");
    disk().MakeFile("b", "2");
    if (!disk().MakeBadName("", "bad \xE4.txt")) GTEST_SKIP() << "not on this disk";
    const List names = Names("");
    ASSERT_EQ(names.size(), 3u);
    ASSERT_TRUE(Recycle(names));
    EXPECT_EQ(PutBack({2, 1, 0}), (Numbers{0, 0, 0}));
    EXPECT_EQ(Names(""), names);
}

} // namespace tarvix::platform
