// Objects that a search saw: they are acted on, and nothing else that came to their paths since.

#include "tests/platform/conformance.h"

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;

} // namespace

void FileSystemConformance::See(const std::string& path, const std::string& location) {
    path_ = At(path);
    const auto look = files().LookAt(path_);
    ASSERT_TRUE(look) << path_;
    sighting_ = {.identity = look->facts.identity,
                 .size = look->facts.size,
                 .attributes = look->facts.attributes,
                 .location = static_cast<std::uint32_t>(At(location).size())};
}

int FileSystemConformance::LookAtSeen(Same same) {
    return NumberOf(files().LookAtSeen(Seen(same)));
}

void FileSystemConformance::MakeAndSee() {
    disk().MakeFile("s\\sub\\a", "inside");
    disk().MakeFile("outside\\a", "secret");
    See("s\\sub\\a", "s");
}

void FileSystemConformance::SwapFolder() {
    ASSERT_TRUE(MoveTree("s\\sub", "away"));
    disk().MakeLink("s\\sub", "outside");
}

void FileSystemConformance::Exchange(const std::string& content) {
    ASSERT_TRUE(Move("s\\sub\\a", "old"));
    disk().MakeFile("s\\sub\\a", content);
}

TEST_P(FileSystemConformance, AnObjectThatStayedIsFound) {
    MakeAndSee();
    const auto look = files().LookAtSeen(Seen(Same::kContent));
    ASSERT_TRUE(look);
    EXPECT_EQ(look->facts.size, 6u);
    EXPECT_EQ(look->path, At("s\\sub\\a"));
    ASSERT_EQ(NumberOf(files().MoveFileTo(*look, {At("new"), nullptr}, {})), 0);
    EXPECT_EQ(TextOf("new"), "inside");
    EXPECT_EQ(LookAtSeen(), kFileNotFound);
    ASSERT_TRUE(MoveTree("s\\sub", "s\\other"));
    EXPECT_EQ(LookAtSeen(), kPathNotFound);
}

TEST_P(FileSystemConformance, AnObjectBehindALinkThatTookItsFoldersPlaceIsNotFound) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    MakeAndSee();
    SwapFolder();
    EXPECT_EQ(LookAtSeen(), kChangedSinceSearch);
    EXPECT_EQ(LookAtSeen(Same::kName), kChangedSinceSearch);
    const std::vector objects{Seen(Same::kName)};
    EXPECT_EQ(NumberOf(disk().Bin().RecycleSeen(objects, {})), kChangedSinceSearch);
    EXPECT_EQ(TextOf("outside\\a"), "secret");
}

TEST_P(FileSystemConformance, TheLocationItselfMayLieBehindALink) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "a link is a folder of its own";
    disk().MakeFile("real\\sub\\a", "inside");
    disk().MakeLink("s", "real");
    See("s\\sub\\a", "s");
    const auto look = files().LookAtSeen(Seen());
    ASSERT_TRUE(look);
    ASSERT_EQ(NumberOf(files().CopyFileTo(*look, {At("copy"), nullptr}, {})), 0);
    EXPECT_EQ(TextOf("copy"), "inside");
}

TEST_P(FileSystemConformance, AFileThatWasExchangedIsNotFound) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    MakeAndSee();
    Exchange("other");
    EXPECT_EQ(LookAtSeen(), kChangedSinceSearch);
    EXPECT_EQ(LookAtSeen(Same::kName), 0);
    const std::vector objects{Seen(Same::kContent)};
    EXPECT_EQ(NumberOf(disk().Bin().RecycleSeen(objects, {})), kChangedSinceSearch);
    EXPECT_EQ(TextOf("s\\sub\\a"), "other");
    const std::vector byName{Seen(Same::kName)};
    EXPECT_EQ(NumberOf(disk().Bin().RecycleSeen(byName, {})), 0);
    EXPECT_FALSE(Exists("s\\sub\\a"));
}

TEST_P(FileSystemConformance, AFileThatALinkOrASpecialFileReplacedIsNotFound) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    MakeAndSee();
    ASSERT_TRUE(Move("s\\sub\\a", "old"));
    disk().MakeLink("s\\sub\\a", "outside\\a");
    EXPECT_EQ(LookAtSeen(), kChangedSinceSearch);
    ASSERT_TRUE(Move("s\\sub\\a", "link"));
    if (!disk().MakeFifo("s\\sub\\a")) GTEST_SKIP() << "no special files on this disk";
    EXPECT_EQ(LookAtSeen(), kChangedSinceSearch);
}

TEST_P(FileSystemConformance, ANeighbourOfAnotherCaseIsAnotherObject) {
    disk().MakeFile("s\\d\\x.txt", "lower");
    disk().MakeFile("s\\D\\x.txt", "upper");
    disk().MakeFile("s\\d\\y.txt", "lower");
    disk().MakeFile("s\\d\\Y.txt", "upper");
    See("s\\d\\x.txt", "s");
    ASSERT_TRUE(MoveTree("s\\d", "gone"));
    EXPECT_EQ(LookAtSeen(), kPathNotFound);
    EXPECT_EQ(LookAtSeen(Same::kName), kPathNotFound);
    See("gone\\y.txt", "gone");
    ASSERT_TRUE(Move("gone\\y.txt", "elsewhere"));
    EXPECT_EQ(LookAtSeen(), kFileNotFound);
    EXPECT_EQ(LookAtSeen(Same::kName), kFileNotFound);
    const std::vector objects{Seen(Same::kName)};
    EXPECT_EQ(NumberOf(disk().Bin().RecycleSeen(objects, {})), kFileNotFound);
    EXPECT_EQ(TextOf("gone\\Y.txt"), "upper");
}

TEST_P(FileSystemConformance, ContentThatChangedCountsWhereItIsAskedFor) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    disk().MakeFile("s\\empty", "");
    See("s\\empty", "s");
    auto stream = files().OpenAsTextStream(At("s\\empty"), OpenMode::kAppend);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Write("content"));
    ASSERT_TRUE((*stream)->Close());
    EXPECT_EQ(LookAtSeen(Same::kObject), 0);
    EXPECT_EQ(LookAtSeen(Same::kContent), kChangedSinceSearch);
}

TEST_P(FileSystemConformance, ADateOfContentBehindTheLookIsAChange) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    disk().MakeFile("s\\a", "12345");
    See("s\\a", "s");
    sighting_.identity.changed -= 60'000'000'000; // the look was a minute ago
    sighting_.identity.inode = 0;                 // and the file may have been made since
    EXPECT_EQ(LookAtSeen(Same::kObject), 0);
    EXPECT_EQ(LookAtSeen(Same::kContent), kChangedSinceSearch);
    disk().SetModified("s\\a", 1'600'000'000'000'000'000);
    EXPECT_EQ(LookAtSeen(Same::kContent), 0);
}

TEST_P(FileSystemConformance, AnEmptyFolderMustStillBeEmpty) {
    disk().MakeFolder("s\\empty");
    See("s\\empty", "s");
    sighting_.wasEmpty = true;
    EXPECT_EQ(LookAtSeen(Same::kContent), 0);
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    disk().MakeFile("s\\empty\\new", "content");
    EXPECT_EQ(LookAtSeen(Same::kObject), 0);
    EXPECT_EQ(LookAtSeen(Same::kContent), kChangedSinceSearch);
    sighting_.wasEmpty = false;
    EXPECT_EQ(LookAtSeen(Same::kContent), 0);
}

TEST_P(FileSystemConformance, ALookHoldsItsCallerToThatObject) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    MakeAndSee();
    const auto look = files().LookAtSeen(Seen());
    ASSERT_TRUE(look);
    Exchange("other");
    const FreePlace place{At("new"), nullptr};
    EXPECT_EQ(NumberOf(files().CopyFileTo(*look, place, {})), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files().PrepareFileOf(*look, place.path, {})), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files().MoveFileTo(*look, place, {})), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files().SetAttributesOf(*look, kReadOnly)), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files().DeleteFileOf(*look, true)), kChangedSinceSearch);
    EXPECT_EQ(TextOf("s\\sub\\a"), "other");
    EXPECT_EQ(AttributesOf("s\\sub\\a") & kReadOnly, 0u);
    EXPECT_FALSE(Exists("new"));
}

TEST_P(FileSystemConformance, ALookAtAFolderHoldsItsCallerToIt) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    disk().MakeFile("s\\sub\\a", "inside");
    See("s\\sub", "s");
    const auto look = files().LookAtSeen(Seen());
    ASSERT_TRUE(look);
    ASSERT_TRUE(MoveTree("s\\sub", "away"));
    disk().MakeFolder("s\\sub");
    const FreePlace place{At("new"), nullptr};
    EXPECT_EQ(NumberOf(files().PrepareFolderOf(*look, place.path, {})), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files().MoveFolderTo(*look, place)), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files().RemoveFolderOf(*look)), kChangedSinceSearch);
    EXPECT_TRUE(Exists("s\\sub"));
    EXPECT_FALSE(Exists("new"));
}

TEST_P(FileSystemConformance, WhatWasSeenIsCopiedChangedAndDeleted) {
    disk().MakeFile("s\\sub\\a", "inside");
    See("s\\sub", "s");
    const auto folder = files().LookAtSeen(Seen());
    ASSERT_TRUE(folder);
    const auto copy = files().PrepareFolderOf(*folder, At("copy"), {});
    ASSERT_TRUE(copy);
    ASSERT_EQ(NumberOf(NameWhole(**copy)), 0);
    EXPECT_EQ(TextOf("copy\\a"), "inside");
    See("s\\sub\\a", "s");
    const auto look = files().LookAtSeen(Seen());
    ASSERT_TRUE(look);
    ASSERT_EQ(NumberOf(files().SetAttributesOf(*look, kReadOnly)), 0);
    EXPECT_NE(AttributesOf("s\\sub\\a") & kReadOnly, 0u);
    EXPECT_EQ(NumberOf(files().DeleteFileOf(*look, false)), kPermissionDenied);
    ASSERT_EQ(NumberOf(files().DeleteFileOf(*look, true)), 0);
    ASSERT_EQ(NumberOf(files().RemoveFolderOf(*folder)), 0);
    EXPECT_EQ(Names("s"), List{});
}

TEST_P(FileSystemConformance, AnotherNameOfTheSameFileMayGoFirst) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    MakeAndSee();
    disk().SetModified("s\\sub\\a", 1'600'000'000'000'000'000);
    See("s\\sub\\a", "s");
    // Rights and names change, but not the content.
    disk().SetReadOnly("s\\sub\\a");
    EXPECT_EQ(LookAtSeen(Same::kContent), 0);
}

} // namespace tarvix::platform
