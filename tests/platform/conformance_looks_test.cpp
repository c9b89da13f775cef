// Looks and free places that are handed on to the call that acts on them.

#include "platform/dir.h"
#include "tests/platform/conformance.h"

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;

Look LookOf(FileSystem& files, const std::string& path) {
    auto look = files.LookAt(path);
    EXPECT_TRUE(look) << path;
    return look.value_or(Look{});
}

FreePlace FreeAt(FileSystem& files, const std::string& path) {
    Standing standing = WhatStands(files, path);
    EXPECT_TRUE(standing.IsFree()) << path;
    return standing.place;
}
} // namespace

TEST_P(FileSystemConformance, ALookTellsWhatFactsTell) {
    disk().MakeFile("a.txt", "12345");
    disk().SetModified("a.txt", 1'600'000'000'000'000'000);
    disk().MakeFolder("folder");
    EXPECT_EQ(LookOf(files(), At("a.txt")).facts.size, 5u);
    EXPECT_EQ(LookOf(files(), At("A.TXT")).facts.modified, 1'600'000'000'000'000'000);
    EXPECT_TRUE(LookOf(files(), At("folder")).facts.IsFolder());
    EXPECT_EQ(NumberOf(files().LookAt(At("missing"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().LookAt(At("missing\\a"))), kPathNotFound);
    EXPECT_EQ(NumberOf(LookAtFile(files(), At("folder"))), kFileNotFound);
    EXPECT_EQ(NumberOf(LookAtFolder(files(), At("a.txt"))), kPathNotFound);
    EXPECT_EQ(NumberOf(LookAtFolder(files(), At("missing"))), kPathNotFound);
    EXPECT_TRUE(LookAtFile(files(), At("a.txt")));
    EXPECT_TRUE(LookAtFolder(files(), At("folder")));
}

TEST_P(FileSystemConformance, WhatStandsIsToldAsTheDiskSpellsIt) {
    disk().MakeFile("f\\Song.mp3", "1");
    disk().MakeFolder("f\\Folder");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(WhatStands(files(), At("f\\SONG.MP3")).name, "Song.mp3");
        EXPECT_FALSE(WhatStands(files(), At("f\\song.mp3")).isFolder);
        EXPECT_EQ(WhatStands(files(), At("f\\folder")).name, "Folder");
        EXPECT_TRUE(WhatStands(files(), At("f\\Folder")).isFolder);
        EXPECT_TRUE(WhatStands(files(), At("f\\none")).IsFree());
        EXPECT_TRUE(WhatStands(files(), At("none\\none")).IsFree());
    }
}

TEST_P(FileSystemConformance, AFileIsCopiedFromALookToAFreePlace) {
    disk().MakeFile("a.txt", "content");
    disk().SetModified("a.txt", 1'600'000'000'000'000'000);
    disk().MakeFolder("f");
    for (const char* name : {"f\\one", "f\\two", "f\\Three"}) {
        const FreePlace place = FreeAt(files(), At(name));
        const Look look = LookOf(files(), At("A.txt"));
        ASSERT_EQ(NumberOf(files().CopyFileTo(look, place, {})), 0) << name;
        EXPECT_EQ(TextOf(name), "content");
        EXPECT_EQ(files().Facts(At(name))->modified, 1'600'000'000'000'000'000);
    }
    EXPECT_EQ(Names("f"), (List{"Three", "one", "two"}));
    EXPECT_EQ(Names(""), (List{"a.txt", "f"}));
}

TEST_P(FileSystemConformance, AFileIsMovedFromALookToAFreePlace) {
    disk().MakeFile("a", "content");
    disk().MakeFolder("f");
    FreePlace place = FreeAt(files(), At("f\\b"));
    ASSERT_EQ(NumberOf(files().MoveFileTo(LookOf(files(), At("a")), place, {})), 0);
    place = FreeAt(files(), At("f\\c"));
    ASSERT_EQ(NumberOf(files().MoveFileTo(LookOf(files(), At("f\\B")), place, {})), 0);
    EXPECT_EQ(Names(""), List{"f"});
    EXPECT_EQ(Names("f"), List{"c"});
    EXPECT_EQ(TextOf("f\\c"), "content");
}

TEST_P(FileSystemConformance, AFolderIsMovedFromALookToAFreePlace) {
    disk().MakeFile("from\\a", "content");
    disk().MakeFolder("f");
    const FreePlace place = FreeAt(files(), At("f\\to"));
    ASSERT_EQ(NumberOf(files().MoveFolderTo(LookOf(files(), At("from")), place)), 0);
    EXPECT_EQ(TextOf("f\\to\\a"), "content");
    EXPECT_EQ(NumberOf(files().MoveFolderTo(LookOf(files(), At("f")), FreeAt(files(), At("f\\x")))),
              kPathFileAccess);
    EXPECT_EQ(Names(""), List{"f"});
}

TEST_P(FileSystemConformance, APlaceThatWeTookMeanwhileIsNotReplaced) {
    disk().MakeFile("a", "a");
    disk().MakeFile("b", "b");
    disk().MakeFolder("f");
    disk().MakeFolder("g");
    const FreePlace place = FreeAt(files(), At("f\\x"));
    const Look a = LookOf(files(), At("a"));
    const Look b = LookOf(files(), At("b"));
    const Look g = LookOf(files(), At("g"));
    ASSERT_TRUE(Copy("a", "f\\X"));
    EXPECT_EQ(NumberOf(files().CopyFileTo(b, place, {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(files().MoveFileTo(b, place, {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(files().MoveFolderTo(g, place)), kAlreadyExists);
    EXPECT_EQ(NumberOf(files().CopyFileTo(a, place, {})), kAlreadyExists);
    EXPECT_EQ(Names("f"), List{"X"});
    EXPECT_EQ(TextOf("f\\X"), "a");
    EXPECT_EQ(Names(""), (List{"a", "b", "f", "g"}));
}

TEST_P(FileSystemConformance, APlaceThatOthersTookMeanwhileIsNotReplaced) {
    if (disk().IsRehearsal()) GTEST_SKIP() << "others aren't seen";
    disk().MakeFile("a", "a");
    disk().MakeFolder("g");
    disk().MakeFolder("f");
    const FreePlace place = FreeAt(files(), At("f\\x"));
    const Look a = LookOf(files(), At("a"));
    const Look g = LookOf(files(), At("g"));
    disk().MakeFile("f\\x", "theirs");
    EXPECT_EQ(NumberOf(files().CopyFileTo(a, place, {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(files().MoveFileTo(a, place, {})), kAlreadyExists);
    EXPECT_EQ(NumberOf(files().MoveFolderTo(g, place)), kAlreadyExists);
    EXPECT_EQ(WhatStands(files(), At("f\\X")).name, "x");
    EXPECT_EQ(Names("f"), List{"x"});
    EXPECT_EQ(TextOf("f\\x"), "theirs");
    EXPECT_EQ(TextOf("a"), "a");
}

TEST_P(FileSystemConformance, WhatWeDidAfterALookCounts) {
    disk().MakeFile("a", "old");
    disk().MakeFile("new", "a content that is longer");
    disk().MakeFolder("f");
    const Look a = LookOf(files(), At("a"));
    const FreePlace place = FreeAt(files(), At("f\\x"));
    ASSERT_TRUE(Copy("new", "a", true));
    ASSERT_EQ(NumberOf(files().CopyFileTo(a, place, {})), 0);
    EXPECT_EQ(TextOf("f\\x"), "a content that is longer");
    const FreePlace other = FreeAt(files(), At("f\\y"));
    ASSERT_TRUE(Move("a", "b"));
    EXPECT_EQ(NumberOf(files().CopyFileTo(a, other, {})), kFileNotFound);
    EXPECT_EQ(NumberOf(files().MoveFileTo(a, other, {})), kFileNotFound);
    ASSERT_TRUE(MoveTree("f", "g"));
    EXPECT_EQ(NumberOf(files().CopyFileTo(LookOf(files(), At("b")), other, {})), kPathNotFound);
    EXPECT_EQ(NumberOf(files().MoveFileTo(LookOf(files(), At("b")), other, {})), kPathNotFound);
    EXPECT_EQ(Names("g"), List{"x"});
    EXPECT_EQ(TextOf("b"), "a content that is longer");
}

TEST_P(FileSystemConformance, ALookAtOneKindDoesNotServeForAnother) {
    disk().MakeFile("a", "1");
    disk().MakeFolder("folder");
    disk().MakeFolder("f");
    const Look a = LookOf(files(), At("a"));
    const Look folder = LookOf(files(), At("folder"));
    EXPECT_EQ(NumberOf(files().CopyFileTo(folder, FreeAt(files(), At("f\\x")), {})), kFileNotFound);
    EXPECT_EQ(NumberOf(files().MoveFileTo(folder, FreeAt(files(), At("f\\x")), {})), kFileNotFound);
    EXPECT_EQ(NumberOf(files().MoveFolderTo(a, FreeAt(files(), At("f\\x")))), kPathNotFound);
    EXPECT_EQ(Names("f"), List{});
}

TEST_P(FileSystemConformance, ALookAndAPlaceOfAnotherFileSystemAreTheirPathsAlone) {
    disk().MakeFile("a", "1");
    disk().MakeFolder("f");
    class Foreign : public Known {};
    const auto foreign = std::make_shared<Foreign>();
    ASSERT_EQ(NumberOf(files().CopyFileTo({At("a"), {}, foreign}, {At("f\\x"), foreign}, {})), 0);
    ASSERT_EQ(NumberOf(files().MoveFileTo({At("a"), {}, nullptr}, {At("f\\y"), nullptr}, {})), 0);
    EXPECT_EQ(Names("f"), (List{"x", "y"}));
    EXPECT_EQ(Names(""), List{"f"});
}

} // namespace tarvix::platform
