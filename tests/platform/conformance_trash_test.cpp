#include "platform/names.h"
#include "tests/platform/conformance.h"

#include <algorithm>

namespace tarvix::platform {

using List = std::vector<std::string>;

TEST_P(FileSystemConformance, RecycleTakesAFileAndItCanBeRestored) {
    disk().MakeFile("a.txt", "content");
    disk().SetModified("a.txt", 1'600'000'000'000'000'000);
    ASSERT_TRUE(Recycle({"a.txt"}));
    EXPECT_EQ(Names(""), List{});
    EXPECT_FALSE(Exists("a.txt"));
    EXPECT_EQ(disk().Trashed(), List{"a.txt"});
    if (disk().IsRehearsal()) return;
    ASSERT_TRUE(disk().Restore("a.txt"));
    EXPECT_EQ(TextOf("a.txt"), "content");
    EXPECT_EQ(files().Facts(At("a.txt"))->modified, 1'600'000'000'000'000'000);
}

TEST_P(FileSystemConformance, RecycleTakesAFolderWithAllItHolds) {
    disk().MakeFile("folder\\a.txt", "1");
    disk().MakeFile("folder\\inner\\b.txt", "2");
    ASSERT_TRUE(Recycle({"folder"}));
    EXPECT_EQ(Names(""), List{});
    EXPECT_EQ(disk().Trashed(), List{"folder"});
    if (disk().IsRehearsal()) return;
    ASSERT_TRUE(disk().Restore("folder"));
    EXPECT_EQ(TextOf("folder\\a.txt"), "1");
    EXPECT_EQ(TextOf("folder\\inner\\b.txt"), "2");
}

TEST_P(FileSystemConformance, RecycleTakesALinkAndNotItsTarget) {
    disk().MakeFile("a.txt", "content");
    disk().MakeFile("folder\\b.txt", "content");
    disk().MakeLink("to file", "a.txt");
    disk().MakeLink("to folder", "folder");
    disk().MakeLink("to nothing", "missing");
    ASSERT_TRUE(Recycle({"to file", "to folder", "to nothing"}));
    EXPECT_EQ(Names(""), (List{"a.txt", "folder"}));
    EXPECT_EQ(TextOf("folder\\b.txt"), "content");
    EXPECT_EQ(disk().Trashed(), (List{"to file", "to folder", "to nothing"}));
}

TEST_P(FileSystemConformance, RecycleWalksThroughALinkOnTheWay) {
    disk().MakeFile("folder\\a.txt", "content");
    disk().MakeLink("link", "folder");
    ASSERT_TRUE(Recycle({"link\\a.txt"}));
    if (disk().IsRehearsal()) return;
    EXPECT_EQ(Names("folder"), List{});
    EXPECT_EQ(Names(""), (List{"folder", "link"}));
}

TEST_P(FileSystemConformance, RecycleTakesAReadOnlyFile) {
    disk().MakeFile("a.txt", "content");
    disk().SetReadOnly("a.txt");
    ASSERT_TRUE(Recycle({"a.txt"}));
    EXPECT_EQ(Names(""), List{});
    if (disk().IsRehearsal()) return;
    ASSERT_TRUE(disk().Restore("a.txt"));
    EXPECT_NE(AttributesOf("a.txt") & kReadOnly, 0u);
}

TEST_P(FileSystemConformance, RecycleTakesAHiddenFile) {
    disk().MakeFile(".a", "content");
    ASSERT_TRUE(Recycle({".a"}));
    EXPECT_EQ(Names(""), List{});
    if (disk().IsRehearsal()) return;
    ASSERT_TRUE(disk().Restore(".a"));
    EXPECT_EQ(TextOf(".a"), "content");
}

TEST_P(FileSystemConformance, RecycleTakesNamesWithReservedCharacters) {
    const std::string reserved = NameToDrive("what? 50% a\\b : \"c\" <d>|e*#\n");
    const std::string foreign = "\xC3\xA4\xE4\xB8\x96\xF0\x9F\x8E\xB5 + a&b;c=d.txt";
    disk().MakeFile(reserved, "1");
    disk().MakeFile(foreign, "2");
    ASSERT_TRUE(Recycle({reserved, foreign}));
    EXPECT_EQ(Names(""), List{});
    if (disk().IsRehearsal()) return;
    ASSERT_TRUE(disk().Restore(reserved));
    ASSERT_TRUE(disk().Restore(foreign));
    EXPECT_EQ(TextOf(reserved), "1");
    EXPECT_EQ(TextOf(foreign), "2");
}

TEST_P(FileSystemConformance, RecycleTakesALongName) {
    const std::string longest(255, 'x');
    disk().MakeFile(longest, "1");
    disk().MakeFile("folder\\" + longest, "2");
    const int first = NumberOf(Recycle({longest}));
    const int second = NumberOf(Recycle({"folder\\" + longest}));
    // A trash that can't hold the name leaves the file where it is.
    for (const auto& [number, path] :
         {std::pair{first, longest}, std::pair{second, "folder\\" + longest}}) {
        EXPECT_TRUE(number == 0 || number == kBadFileName) << number;
        EXPECT_EQ(Exists(path), number != 0);
    }
}

TEST_P(FileSystemConformance, RecycleKeepsObjectsOfOneNameApart) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "not on this disk";
    for (const char* content : {"first", "second", "third"}) {
        disk().MakeFile("a.txt", content);
        ASSERT_TRUE(Recycle({"a.txt"}));
    }
    disk().MakeFile("folder\\a.txt", "fourth");
    ASSERT_TRUE(Recycle({"folder\\a.txt"}));
    EXPECT_EQ(disk().Trashed(), (List{"a.txt", "a.txt", "a.txt", "folder\\a.txt"}));
    List contents;
    while (disk().Restore("a.txt")) {
        contents.push_back(TextOf("a.txt"));
        ASSERT_TRUE(Move("a.txt", std::to_string(contents.size())));
    }
    std::sort(contents.begin(), contents.end());
    EXPECT_EQ(contents, (List{"first", "second", "third"}));
    ASSERT_TRUE(disk().Restore("folder\\a.txt"));
    EXPECT_EQ(TextOf("folder\\a.txt"), "fourth");
}

TEST_P(FileSystemConformance, RecycleFindsNamesInOtherCase) {
    disk().MakeFile("Song.MP3", "1");
    disk().MakeFile("other", "2");
    ASSERT_TRUE(Recycle({"song.mp3"}));
    EXPECT_EQ(Names(""), List{"other"});
    EXPECT_FALSE(Exists("SONG.mp3"));
    if (disk().IsRehearsal()) return;
    EXPECT_EQ(disk().Trashed(), List{"Song.MP3"});
}

TEST_P(FileSystemConformance, RecycleTakesTheExactNameFirst) {
    disk().MakeFile("song.mp3", "lower");
    disk().MakeFile("SONG.mp3", "upper");
    ASSERT_TRUE(Recycle({"song.mp3"}));
    EXPECT_EQ(Names(""), List{"SONG.mp3"});
    EXPECT_TRUE(Exists("song.mp3"));
}

TEST_P(FileSystemConformance, WhatWasRecycledIsNoLongerFoundInAnyCase) {
    disk().MakeFile("Song.mp3", "1");
    disk().MakeFile("folder\\Inner.txt", "1");
    ASSERT_TRUE(Exists("SONG.MP3"));
    ASSERT_TRUE(Exists("folder\\INNER.TXT"));
    ASSERT_TRUE(Recycle({"Song.mp3", "folder"}));
    EXPECT_FALSE(Exists("SONG.MP3"));
    EXPECT_EQ(NumberOf(files().Facts(At("folder\\INNER.TXT"))), kPathNotFound);
    ASSERT_TRUE(files().CreateFolder(At("FOLDER")));
    ASSERT_TRUE(files().CreateTextFile(At("FOLDER\\new"), false));
    EXPECT_FALSE(Exists("folder\\inner.txt"));
    EXPECT_TRUE(Exists("folder\\NEW"));
}

TEST_P(FileSystemConformance, RecycleOfWhatIsMissing) {
    disk().MakeFile("a.txt", "1");
    EXPECT_EQ(NumberOf(Recycle({"missing"})), kFileNotFound);
    EXPECT_EQ(NumberOf(Recycle({"missing\\a.txt"})), kPathNotFound);
    EXPECT_EQ(NumberOf(Recycle({"a.txt\\b"})), kPathNotFound);
    EXPECT_EQ(NumberOf(Recycle({"a?.txt"})), kBadFileName);
    EXPECT_EQ(NumberOf(Recycle({})), 0);
    EXPECT_EQ(Names(""), List{"a.txt"});
}

TEST_P(FileSystemConformance, RecycleOfADriveIsRefused) {
    const std::vector<std::string> drive{Root().substr(0, 3)};
    EXPECT_EQ(NumberOf(disk().Bin().Recycle(drive, {})), kPermissionDenied);
}

TEST_P(FileSystemConformance, RecycleStopsAtTheFirstFailure) {
    for (const char* name : {"a", "b", "c"})
        disk().MakeFile(name, name);
    EXPECT_EQ(NumberOf(Recycle({"a", "missing", "b", "c"})), kFileNotFound);
    EXPECT_EQ(Names(""), (List{"b", "c"}));
    EXPECT_EQ(disk().Trashed(), List{"a"});
}

TEST_P(FileSystemConformance, RecycleTellsHowFarItIsBeforeEachObject) {
    for (const char* name : {"a", "b", "c"})
        disk().MakeFile(name, name);
    std::vector<std::pair<std::size_t, std::size_t>> told;
    const auto observer = [&](std::size_t done) {
        told.emplace_back(done, Names("").size());
        return true;
    };
    ASSERT_TRUE(Recycle({"a", "b", "c"}, observer));
    EXPECT_EQ(told, (std::vector<std::pair<std::size_t, std::size_t>>{{0, 3}, {1, 2}, {2, 1}}));
}

TEST_P(FileSystemConformance, RecycleStopsBeforeTheObjectThatTheObserverDoesNotWant) {
    for (const char* name : {"a", "b", "c"})
        disk().MakeFile(name, name);
    const auto observer = [](std::size_t done) { return done < 1; };
    EXPECT_EQ(NumberOf(Recycle({"a", "b", "c"}, observer)), kInterrupted);
    EXPECT_EQ(Names(""), (List{"b", "c"}));
    EXPECT_EQ(disk().Trashed(), List{"a"});
}

} // namespace tarvix::platform
