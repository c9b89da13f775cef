#include "platform/short_names.h"
#include "tests/platform/conformance.h"
#include "text/case.h"

namespace tarvix::platform {

TEST_P(FileSystemConformance, FactsOfAFile) {
    disk().MakeFile("a.txt", "12345");
    disk().SetModified("a.txt", 1'600'000'000'123'456'700);
    const auto facts = files().Facts(At("a.txt"));
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->size, 5u);
    EXPECT_EQ(facts->modified, 1'600'000'000'123'456'700);
    EXPECT_EQ(facts->attributes & (kReadOnly | kHidden | kFolder | kSpecial | kAlias), 0u);
    EXPECT_TRUE(GetFile(files(), At("a.txt")));
    EXPECT_EQ(NumberOf(GetFolder(files(), At("a.txt"))), kPathNotFound);
}

TEST_P(FileSystemConformance, FactsOfAFileWithATimeBefore1970) {
    disk().MakeFile("a.txt", "");
    disk().SetModified("a.txt", -86'400'000'000'000);
    EXPECT_EQ(files().Facts(At("a.txt"))->modified, -86'400'000'000'000);
}

TEST_P(FileSystemConformance, FactsOfAFolder) {
    disk().MakeFile("folder\\a.txt", "12345");
    const auto facts = files().Facts(At("folder"));
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->attributes & (kFolder | kAlias | kSpecial), std::uint32_t{kFolder});
    EXPECT_EQ(facts->size, 0u);
    EXPECT_TRUE(GetFolder(files(), At("folder")));
    EXPECT_EQ(NumberOf(GetFile(files(), At("folder"))), kFileNotFound);
}

TEST_P(FileSystemConformance, FactsTakeAFinalBackslash) {
    disk().MakeFolder("folder");
    EXPECT_TRUE(files().Facts(At("folder\\")));
}

TEST_P(FileSystemConformance, FactsOfADrive) {
    const auto facts = files().Facts(Root().substr(0, 2) + "\\");
    ASSERT_TRUE(facts);
    EXPECT_TRUE(facts->IsFolder());
    EXPECT_TRUE(files().Facts(Root().substr(0, 2)));
}

TEST_P(FileSystemConformance, MissingNameGives53AndMissingFolder76) {
    disk().MakeFile("a.txt", "");
    EXPECT_EQ(NumberOf(files().Facts(At("missing"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().Facts(At("missing\\a.txt"))), kPathNotFound);
    EXPECT_EQ(NumberOf(files().Facts(At("a.txt\\b.txt"))), kPathNotFound);
    EXPECT_EQ(NumberOf(GetFile(files(), At("missing"))), kFileNotFound);
    EXPECT_EQ(NumberOf(GetFolder(files(), At("missing"))), kPathNotFound);
}

TEST_P(FileSystemConformance, ErrorsNameTheObject) {
    const auto facts = files().Facts(At("missing"));
    ASSERT_FALSE(facts);
    EXPECT_NE(facts.error().description.find("missing"), std::string::npos);
}

TEST_P(FileSystemConformance, WhatIsNoDrivePathGives52) {
    for (const char* path : {"", "a.txt", "\\a.txt", "C:a.txt", "/tmp", "\\\\", "\\\\server"}) {
        EXPECT_EQ(NumberOf(files().Facts(path)), kBadFileName) << path;
    }
}

TEST_P(FileSystemConformance, ReservedCharactersAsThemselvesGive52) {
    for (const char* name : {"a*b", "a?b", "a\"b", "a<b", "a>b", "a|b", "a:b", "a/b", "a\nb"}) {
        EXPECT_EQ(NumberOf(files().Facts(At(name))), kBadFileName) << name;
        EXPECT_EQ(NumberOf(files().CreateFolder(At(name))), kBadFileName) << name;
        EXPECT_EQ(NumberOf(files().CreateTextFile(At(name), true)), kBadFileName) << name;
    }
    EXPECT_TRUE(Names("").empty());
}

TEST_P(FileSystemConformance, ANameTooLongForTheDiskGives52) {
    const std::string name(256, 'a');
    EXPECT_EQ(NumberOf(files().CreateFolder(At(name))), kBadFileName);
    EXPECT_EQ(NumberOf(files().Facts(At(name))), kBadFileName);
}

TEST_P(FileSystemConformance, AMissingFolderComesBeforeANameTooLongInIt) {
    const std::string name(256, 'a');
    disk().MakeFile("a.txt", "x");
    EXPECT_EQ(NumberOf(files().Facts(At("missing\\" + name))), kPathNotFound);
    EXPECT_EQ(NumberOf(files().Facts(At("a.txt\\" + name))), kPathNotFound);
}

TEST_P(FileSystemConformance, DotsInAPathAreResolvedByText) {
    disk().MakeFile("folder\\a.txt", "x");
    EXPECT_TRUE(Exists("folder\\.\\a.txt"));
    EXPECT_TRUE(Exists("missing\\..\\folder\\a.txt"));
    EXPECT_TRUE(Exists("folder\\\\a.txt"));
}

TEST_P(FileSystemConformance, ExactNameComesBeforeOtherCase) {
    disk().MakeFile("A.TXT", "upper");
    disk().MakeFile("a.txt", "lower!");
    disk().MakeFile("A.txt", "mixed!!");
    EXPECT_EQ(files().Facts(At("A.TXT"))->size, 5u);
    EXPECT_EQ(files().Facts(At("a.txt"))->size, 6u);
    EXPECT_EQ(files().Facts(At("A.txt"))->size, 7u);
}

TEST_P(FileSystemConformance, OtherCaseIsFound) {
    disk().MakeFile("Folder\\Inner\\Song.mp3", "x");
    EXPECT_TRUE(Exists("FOLDER\\inner\\sONG.MP3"));
    EXPECT_EQ(*files().TruePath(At("FOLDER\\inner\\sONG.MP3")), At("Folder\\Inner\\Song.mp3"));
}

TEST_P(FileSystemConformance, OtherCaseIsFoundBeyondAscii) {
    disk().MakeFile("Żółć Ärger.txt", "x");
    EXPECT_EQ(*files().TruePath(At("żÓŁĆ äRGER.txt")), At("Żółć Ärger.txt"));
}

TEST_P(FileSystemConformance, OfSeveralOtherCasesTheFirstInOrderIsTaken) {
    disk().MakeFile("sOng.mp3", "3");
    disk().MakeFile("SONG.mp3", "1");
    disk().MakeFile("Song.mp3", "2");
    EXPECT_EQ(*files().TruePath(At("song.mp3")), At("SONG.mp3"));
}

TEST_P(FileSystemConformance, TruePathGivesTheDriveInUpperCase) {
    disk().MakeFile("a.txt", "x");
    std::string path = At("A.TXT");
    path[0] = static_cast<char>(path[0] | 0x20);
    EXPECT_EQ(*files().TruePath(path), At("a.txt"));
    EXPECT_EQ(*files().TruePath(path.substr(0, 2)), Root().substr(0, 2) + "\\");
}

TEST_P(FileSystemConformance, TruePathHasNoFinalBackslash) {
    disk().MakeFolder("Folder");
    EXPECT_EQ(*files().TruePath(At("folder\\")), At("Folder"));
}

TEST_P(FileSystemConformance, TruePathLeavesLinksIn) {
    disk().MakeFile("folder\\a.txt", "x");
    disk().MakeLink("Link", "folder");
    EXPECT_EQ(*files().TruePath(At("link\\A.txt")), At("Link\\a.txt"));
}

TEST_P(FileSystemConformance, TruePathOfWhatIsMissing) {
    EXPECT_EQ(NumberOf(files().TruePath(At("missing"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().TruePath(At("missing\\a"))), kPathNotFound);
}

TEST_P(FileSystemConformance, ShortPathRoundTrip) {
    disk().MakeFile("A long folder name\\And a long file name.flac", "music");
    const auto shortPath = files().ShortPath(At("A long folder name\\And a long file name.flac"));
    ASSERT_TRUE(shortPath);
    EXPECT_TRUE(shortPath->ends_with("\\" + ShortNameOf("A long folder name") + "\\" +
                                     ShortNameOf("And a long file name.flac")));
    EXPECT_EQ(files().Facts(*shortPath)->size, 5u);
    EXPECT_EQ(*files().TruePath(*shortPath), At("A long folder name\\And a long file name.flac"));
    EXPECT_TRUE(files().CopyFile(*shortPath, At("copy"), false, {}));
    EXPECT_EQ(TextOf("copy"), "music");
}

TEST_P(FileSystemConformance, ShortPathOfAShortPathIsItself) {
    disk().MakeFile("A long name.text", "");
    const auto once = files().ShortPath(At("A long name.text"));
    ASSERT_TRUE(once);
    EXPECT_EQ(*files().ShortPath(*once), *once);
}

TEST_P(FileSystemConformance, ShortNamesAreFoundInEitherCase) {
    disk().MakeFile("A long name.text", "12");
    EXPECT_TRUE(Exists(text::Lower(ShortNameOf("A long name.text"))));
}

TEST_P(FileSystemConformance, ShortPathOfWhatIsMissing) {
    EXPECT_EQ(NumberOf(files().ShortPath(At("missing"))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().ShortPath(At("missing\\a"))), kPathNotFound);
}

TEST_P(FileSystemConformance, NewObjectsAreMadeThroughAShortFolder) {
    disk().MakeFolder("A long folder name");
    const auto folder = files().ShortPath(At("A long folder name"));
    ASSERT_TRUE(folder);
    EXPECT_TRUE(files().CreateFolder(*folder + "\\New"));
    EXPECT_TRUE(Exists("A long folder name\\New"));
}

TEST_P(FileSystemConformance, AnExactNameComesBeforeAShortName) {
    const std::string shortName = ShortNameOf("A long name.text");
    disk().MakeFile("A long name.text", "long name");
    disk().MakeFile(shortName, "exact");
    EXPECT_EQ(files().Facts(At(shortName))->size, 5u);
}

TEST_P(FileSystemConformance, AShortNameThatTwoNamesShareIsNotFound) {
    const auto [one, other] = NamesWithOneShortName();
    disk().MakeFile(one, "1");
    disk().MakeFile(other, "2");
    EXPECT_EQ(NumberOf(files().Facts(At(ShortNameOf(one)))), kFileNotFound);
    EXPECT_EQ(NumberOf(files().DeleteFile(At(ShortNameOf(one)), true)), kFileNotFound);
    EXPECT_EQ(NumberOf(files().Facts(At(ShortNameOf(one) + "\\x"))), kPathNotFound);
    EXPECT_EQ(Names("").size(), 2u);
}

TEST_P(FileSystemConformance, OddCharactersInNamesAreFound) {
    for (const char c : std::string_view("\\:*?\"<>|\n\t\x1F")) {
        std::string carried = "\xEF\x80\x80"; // U+F000 and the code
        carried[1] = static_cast<char>(0x80 + (c >> 6));
        carried[2] = static_cast<char>(0x80 + (c & 0x3F));
        const std::string name = "a" + carried + "b";
        disk().MakeFile(name, "x");
        EXPECT_TRUE(Exists(name)) << static_cast<int>(c);
        EXPECT_EQ(Listed(""), std::vector<std::string>{name}) << static_cast<int>(c);
        EXPECT_TRUE(Copy(name, "copy of " + name)) << static_cast<int>(c);
        EXPECT_TRUE(Exists("copy of " + name)) << static_cast<int>(c);
        EXPECT_TRUE(files().DeleteFile(At("copy of " + name), false));
        EXPECT_TRUE(files().DeleteFile(At(name), false)) << static_cast<int>(c);
    }
}

TEST_P(FileSystemConformance, ANameThatIsNotUtf8IsAnObjectLikeOthers) {
    if (!disk().MakeBadName("", "caf\xE9.txt")) GTEST_SKIP() << "not on this disk";
    EXPECT_EQ(Listed(""), std::vector<std::string>{"caf\uF0E9.txt"});
    EXPECT_TRUE(files().Facts(At("caf\uF0E9.txt")));
    EXPECT_TRUE((*files().Open(Root()))->Facts("caf\uF0E9.txt"));
    EXPECT_EQ(NumberOf(files().Facts(At("caf?.txt"))), kBadFileName);
    EXPECT_EQ(NumberOf(files().Facts(At("caf\u00E9.txt"))), kFileNotFound);
    ASSERT_TRUE(Copy("caf\uF0E9.txt", "\uF0E9"));
    ASSERT_TRUE(Move("caf\uF0E9.txt", "caf\uF0E8.txt"));
    EXPECT_EQ(Names(""), (std::vector<std::string>{"caf\uF0E8.txt", "\uF0E9"}));
    EXPECT_TRUE(files().DeleteFile(At("caf\uF0E8.txt"), false));
    EXPECT_TRUE(files().DeleteFile(At("\uF0E9"), false));
    EXPECT_EQ(Listed("").size(), 0u);
}

TEST_P(FileSystemConformance, BlanksAndDotsAtTheEndsOfANameAreCarried) {
    const std::vector<std::string> names{"a\uF020", "a\uF02E", "a.\uF02E", "\uF020a", "\uF020"};
    disk().MakeFile("a", "plain");
    for (const std::string& name : names)
        disk().MakeFile(name, name);
    std::vector<std::string> all{"a"};
    all.insert(all.end(), names.begin(), names.end());
    std::ranges::sort(all);
    EXPECT_EQ(Names(""), all);
    for (const std::string& name : names) {
        ASSERT_TRUE(Copy(name, "copy")) << name;
        EXPECT_EQ(disk().Content("copy"), name);
        EXPECT_EQ(*files().TruePath(At(name)), At(name));
        ASSERT_TRUE(files().DeleteFile(At("copy"), false));
        ASSERT_TRUE(files().DeleteFile(At(name), false));
    }
    EXPECT_EQ(disk().Content("a"), "plain");
}

TEST_P(FileSystemConformance, ANameThatIsNotUtf8CanBeOpenedByItsShortName) {
    if (!disk().MakeBadName("", "caf\xE9.txt")) GTEST_SKIP() << "not on this disk";
    const std::string shortName = ShortNameOf("caf\uF0E9.txt");
    EXPECT_TRUE(Exists(shortName));
    EXPECT_EQ(*files().TruePath(At(shortName)), At("caf\uF0E9.txt"));
    ASSERT_TRUE(Move(shortName, "coffee.txt"));
    EXPECT_EQ(Listed(""), std::vector<std::string>{"coffee.txt"});
}

TEST_P(FileSystemConformance, TrailingAndLeadingBlanksBelongToTheName) {
    disk().MakeFile("a", "1");
    disk().MakeFile("a\uF020", "22");
    disk().MakeFile("\uF020a", "333");
    EXPECT_EQ(files().Facts(At("a\uF020"))->size, 2u);
    EXPECT_EQ(files().Facts(At("\uF020a"))->size, 3u);
    EXPECT_EQ(Listed(""), (std::vector<std::string>{"a", "a\uF020", "\uF020a"}));
}

TEST_P(FileSystemConformance, ALeadingDotIsHidden) {
    disk().MakeFile(".hidden", "");
    disk().MakeFolder(".folder");
    EXPECT_NE(AttributesOf(".hidden") & kHidden, 0u);
    EXPECT_NE(AttributesOf(".folder") & kHidden, 0u);
}

TEST_P(FileSystemConformance, LinkToAFolderIsFolderAndLink) {
    disk().MakeFile("folder\\a.txt", "x");
    disk().MakeLink("link", "folder");
    EXPECT_EQ(AttributesOf("link") & (kFolder | kAlias), std::uint32_t{kFolder | kAlias});
    EXPECT_TRUE(Exists("link\\a.txt"));
}

TEST_P(FileSystemConformance, LinkToAFileIsLinkOnly) {
    disk().MakeFile("a.txt", "x");
    disk().MakeLink("link", "a.txt");
    EXPECT_EQ(AttributesOf("link") & (kFolder | kAlias), std::uint32_t{kAlias});
    EXPECT_TRUE(GetFile(files(), At("link")));
}

TEST_P(FileSystemConformance, DanglingLinkHasFacts) {
    disk().MakeLink("link", "missing");
    EXPECT_EQ(AttributesOf("link") & (kFolder | kAlias), std::uint32_t{kAlias});
    EXPECT_EQ(NumberOf(files().Facts(At("link\\a"))), kPathNotFound);
}

TEST_P(FileSystemConformance, LinksInALoopHaveFactsAndLeadNowhere) {
    disk().MakeLink("one", "two");
    disk().MakeLink("two", "one");
    EXPECT_EQ(AttributesOf("one") & (kFolder | kAlias), std::uint32_t{kAlias});
    EXPECT_EQ(NumberOf(files().Facts(At("one\\a"))), kPathNotFound);
    EXPECT_EQ(NumberOf(files().Open(At("one"))), kPathNotFound);
}

TEST_P(FileSystemConformance, LinkToItsOwnFolderIsWalkedOnDemandOnly) {
    disk().MakeFile("folder\\a.txt", "x");
    disk().MakeLink("folder\\up", "folder");
    EXPECT_TRUE(Exists("folder\\up\\up\\up\\a.txt"));
    EXPECT_EQ(Listed("folder"), (std::vector<std::string>{"a.txt", "up"}));
}

TEST_P(FileSystemConformance, FifoHasTheBitOfSpecialFilesAndIsNeverOpened) {
    if (!disk().MakeFifo("pipe")) GTEST_SKIP() << "not on this disk";
    disk().MakeLink("link", "pipe");
    EXPECT_NE(AttributesOf("pipe") & kSpecial, 0u);
    EXPECT_EQ(Listed(""), (std::vector<std::string>{"link", "pipe"}));
    for (const char* name : {"pipe", "link"}) {
        EXPECT_EQ(NumberOf(files().ReadBytes(At(name), 0, 10)), kBadFileName);
        EXPECT_EQ(NumberOf(files().OpenAsTextStream(At(name), OpenMode::kRead)), kBadFileName);
        EXPECT_EQ(NumberOf(files().OpenAsTextStream(At(name), OpenMode::kAppend)), kBadFileName);
        EXPECT_EQ(NumberOf(files().CreateTextFile(At(name), true)), kBadFileName);
    }
}

TEST_P(FileSystemConformance, UnreadableFolderIsRefused) {
    disk().MakeFile("folder\\a.txt", "x");
    if (!disk().MakeUnreadable("folder")) GTEST_SKIP() << "not on this disk or for this user";
    EXPECT_TRUE(Exists("folder"));
    EXPECT_EQ(NumberOf(files().Open(At("folder"))), kPermissionDenied);
}

TEST_P(FileSystemConformance, PathsOf260And3000CharactersWork) {
    const std::string name(49, 'n');
    std::string path = "deep";
    bool told260 = false;
    while (At(path).size() < 3000) {
        ASSERT_TRUE(files().CreateFolder(At(path))) << At(path).size();
        path += "\\" + name;
        if (At(path).size() >= 260 && !told260) {
            told260 = true;
            EXPECT_EQ(NumberOf(files().Facts(At(path))), kFileNotFound);
        }
    }
    disk().MakeFile("a.txt", "x");
    EXPECT_TRUE(Copy("a.txt", path));
    EXPECT_EQ(*files().TruePath(At(path)), At(path));
    EXPECT_TRUE(Move(path, "b.txt"));
    EXPECT_EQ(TextOf("b.txt"), "x");
    EXPECT_TRUE(CopyTree("deep", "second"));
}

TEST_P(FileSystemConformance, SetAttributesMakesReadOnlyAndBack) {
    disk().MakeFile("a.txt", "x");
    ASSERT_TRUE(files().SetAttributes(At("a.txt"), kReadOnly | kHidden | kSystem | kArchive));
    EXPECT_NE(AttributesOf("a.txt") & kReadOnly, 0u);
    ASSERT_TRUE(files().SetAttributes(At("a.txt"), 0));
    EXPECT_EQ(AttributesOf("a.txt") & kReadOnly, 0u);
}

TEST_P(FileSystemConformance, SetAttributesOfAFolderLeavesItAFolder) {
    disk().MakeFile("folder\\a.txt", "x");
    ASSERT_TRUE(files().SetAttributes(At("folder"), kFolder));
    EXPECT_TRUE(Exists("folder\\a.txt"));
    EXPECT_EQ(AttributesOf("folder") & (kFolder | kReadOnly), std::uint32_t{kFolder});
}

TEST_P(FileSystemConformance, SetAttributesOfALinkLeavesItsTargetAlone) {
    disk().MakeFile("a.txt", "x");
    disk().MakeLink("link", "a.txt");
    EXPECT_TRUE(files().SetAttributes(At("link"), kReadOnly));
    EXPECT_EQ(AttributesOf("a.txt") & kReadOnly, 0u);
    EXPECT_EQ(AttributesOf("link") & kReadOnly, 0u);
}

TEST_P(FileSystemConformance, SetAttributesOfWhatIsMissing) {
    EXPECT_EQ(NumberOf(files().SetAttributes(At("missing"), 0)), kFileNotFound);
    EXPECT_EQ(NumberOf(files().SetAttributes(At("missing\\a"), 0)), kPathNotFound);
}

} // namespace tarvix::platform
