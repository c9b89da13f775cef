#include "platform/dir.h"
#include "tests/platform/conformance.h"

namespace tarvix::platform {

namespace {
std::vector<std::string> AllOf(Dir& dir, std::string_view spec, std::uint32_t mask) {
    std::vector<std::string> names;
    for (auto name = dir.First(spec, mask); !name.empty(); name = dir.Next()) {
        names.push_back(name);
    }
    return names;
}
} // namespace

TEST_P(FileSystemConformance, ListingIsInUpperCaseOrder) {
    for (const char* name : {"b", "_", "C", "A1", "a", "Ä", "a.b", "ä2", "a b", "B2", "Z", "A"}) {
        disk().MakeFile(name, "");
    }
    EXPECT_EQ(Listed(""), (std::vector<std::string>{"A", "a", "a b", "a.b", "A1", "b", "B2", "C",
                                                    "Z", "_", "Ä", "ä2"}));
}

TEST_P(FileSystemConformance, ListingHasEveryName) {
    for (int i = 0; i < 1500; ++i) {
        disk().MakeFile("folder\\a file with a name of some length " + std::to_string(i), "");
    }
    EXPECT_EQ(Listed("folder").size(), 1500u);
}

TEST_P(FileSystemConformance, ListingOfAnEmptyFolderIsEmpty) {
    disk().MakeFolder("folder");
    EXPECT_TRUE(Listed("folder").empty());
}

TEST_P(FileSystemConformance, ListingReplacesWhatTheListHeld) {
    disk().MakeFile("a", "");
    FolderListing listing;
    listing.Add({"old"});
    ASSERT_TRUE((*files().Open(Root()))->List(listing));
    ASSERT_EQ(listing.Size(), 1u);
    EXPECT_EQ(listing[0].name, "a");
}

TEST_P(FileSystemConformance, ListingTwiceGivesTheSame) {
    disk().MakeFile("a", "");
    auto folder = files().Open(Root());
    ASSERT_TRUE(folder);
    FolderListing listing;
    ASSERT_TRUE((*folder)->List(listing));
    ASSERT_TRUE((*folder)->List(listing));
    EXPECT_EQ(listing.Size(), 1u);
}

TEST_P(FileSystemConformance, ListingTellsFoldersAndLinks) {
    disk().MakeFile("1 file", "");
    disk().MakeFolder("2 folder");
    disk().MakeLink("3 link to file", "1 file");
    disk().MakeLink("4 link to folder", "2 folder");
    disk().MakeLink("5 link to nothing", "missing");
    FolderListing listing;
    ASSERT_TRUE((*files().Open(Root()))->List(listing));
    ASSERT_EQ(listing.Size(), 5u);
    const bool expected[5][2] = {
        {false, false}, {true, false}, {false, true}, {true, true}, {false, true}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(listing[i].isFolder, expected[i][0]) << listing[i].name;
        EXPECT_EQ(listing[i].isLink, expected[i][1]) << listing[i].name;
        EXPECT_EQ(listing[i].IsWalkable(), i == 1) << listing[i].name;
    }
}

TEST_P(FileSystemConformance, OpenTakesFoldersAndLinksToThem) {
    disk().MakeFile("folder\\a.txt", "");
    disk().MakeLink("link", "folder");
    EXPECT_EQ(Listed("link"), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(Listed("FOLDER\\"), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(NumberOf(files().Open(At("folder\\a.txt"))), kPathNotFound);
    EXPECT_EQ(NumberOf(files().Open(At("missing"))), kPathNotFound);
    EXPECT_EQ(NumberOf(files().Open(At("missing\\folder"))), kPathNotFound);
}

TEST_P(FileSystemConformance, FactsByFolderAreThoseByPath) {
    disk().MakeFile("a.txt", "123");
    disk().SetModified("a.txt", 1'500'000'000'000'000'000);
    disk().MakeLink("link", "folder");
    disk().MakeFolder("folder");
    auto folder = files().Open(Root());
    ASSERT_TRUE(folder);
    for (const char* name : {"a.txt", "folder", "link"}) {
        const auto byFolder = (*folder)->Facts(name);
        const auto byPath = files().Facts(At(name));
        ASSERT_TRUE(byFolder && byPath) << name;
        EXPECT_EQ(byFolder->attributes, byPath->attributes) << name;
        EXPECT_EQ(byFolder->size, byPath->size) << name;
        EXPECT_EQ(byFolder->modified, byPath->modified) << name;
        EXPECT_EQ(byFolder->created, byPath->created) << name;
    }
}

TEST_P(FileSystemConformance, FactsByFolderTakeTheExactNameOnly) {
    disk().MakeFile("a.txt", "");
    auto folder = files().Open(Root());
    ASSERT_TRUE(folder);
    EXPECT_EQ(NumberOf((*folder)->Facts("A.TXT")), kFileNotFound);
    EXPECT_EQ(NumberOf((*folder)->Facts("missing")), kFileNotFound);
    EXPECT_EQ(NumberOf((*folder)->Facts(std::string(256, 'a'))), kBadFileName);
    disk().MakeFile("later.txt", "");
    EXPECT_TRUE((*folder)->Facts("later.txt"));
}

TEST_P(FileSystemConformance, DirMatchesByWildcard) {
    for (const char* name : {"a.mp3", "A2.MP3", "b.flac", "noext", "[x]#1.txt", "ab.mp3"}) {
        disk().MakeFile(name, "");
    }
    disk().MakeFolder("folder.mp3");
    struct {
        const char* spec;
        std::uint32_t mask;
        std::vector<std::string> names;
    } const table[] = {
        {"*", kDirFiles, {"a.mp3", "A2.MP3", "ab.mp3", "b.flac", "noext", "[x]#1.txt"}},
        {"*.*", kDirFiles, {"a.mp3", "A2.MP3", "ab.mp3", "b.flac", "noext", "[x]#1.txt"}},
        {"*.mp3", kDirFiles, {"a.mp3", "A2.MP3", "ab.mp3"}},
        {"*.mp3", kDirAll, {"a.mp3", "A2.MP3", "ab.mp3", "folder.mp3"}},
        {"A?.mp3", kDirFiles, {"A2.MP3", "ab.mp3"}},
        {"a*", kDirFiles, {"a.mp3", "A2.MP3", "ab.mp3"}},
        {"*O*", kDirAll, {"folder.mp3", "noext"}},
        {"[x]#*", kDirFiles, {"[x]#1.txt"}},
        {"[a]*", kDirFiles, {}},
        {"#*", kDirFiles, {}},
        {"?", kDirAll, {}},
        {"", kDirAll, {"a.mp3", "A2.MP3", "ab.mp3", "b.flac", "folder.mp3", "noext", "[x]#1.txt"}},
        {"", kDirFiles, {"a.mp3", "A2.MP3", "ab.mp3", "b.flac", "noext", "[x]#1.txt"}},
        {"a.mp3", kDirFiles, {"a.mp3"}},
        {"a2.mp3", kDirFiles, {"A2.MP3"}},
        {"[X]#1.txt", kDirFiles, {"[x]#1.txt"}},
        {"folder.mp3", kDirFiles, {}},
        {"FOLDER.mp3", kDirAll, {"folder.mp3"}},
        {"missing", kDirAll, {}},
        {"missing\\*", kDirAll, {}},
        {"a.mp3\\*", kDirAll, {}},
    };
    Dir dir(files());
    for (const auto& row : table) {
        EXPECT_EQ(AllOf(dir, At(row.spec), row.mask), row.names) << row.spec << " " << row.mask;
    }
}

TEST_P(FileSystemConformance, DirIsDoneAfterItsLastName) {
    disk().MakeFile("a", "");
    Dir dir(files());
    EXPECT_EQ(dir.First(At("*"), kDirFiles), "a");
    EXPECT_EQ(dir.Next(), "");
    EXPECT_EQ(dir.Next(), "");
    EXPECT_EQ(dir.First(At("a"), kDirFiles), "a");
    EXPECT_EQ(dir.Next(), "");
}

TEST_P(FileSystemConformance, DirOfAFolderIsItsNameAndBehindABackslashItsContent) {
    disk().MakeFile("Folder\\a", "");
    Dir dir(files());
    EXPECT_EQ(AllOf(dir, At("folder"), kDirAll), std::vector<std::string>{"Folder"});
    EXPECT_EQ(AllOf(dir, At("folder\\"), kDirAll), std::vector<std::string>{"a"});
    EXPECT_EQ(AllOf(dir, At("folder\\"), kDirFiles), std::vector<std::string>{"a"});
}

TEST_P(FileSystemConformance, DirTakesLinksToFoldersAsFolders) {
    disk().MakeFolder("folder");
    disk().MakeFile("file", "");
    disk().MakeLink("to folder", "folder");
    disk().MakeLink("to file", "file");
    Dir dir(files());
    EXPECT_EQ(AllOf(dir, At("to*"), kDirFiles), std::vector<std::string>{"to file"});
    EXPECT_EQ(AllOf(dir, At("to*"), kDirAll), (std::vector<std::string>{"to file", "to folder"}));
    EXPECT_EQ(DirName(files(), At("to folder"), kDirFiles), "");
    EXPECT_EQ(DirName(files(), At("to folder"), kDirAll), "to folder");
}

TEST_P(FileSystemConformance, DirNameGivesTheNameAsOnDisk) {
    disk().MakeFile("Folder\\Song.mp3", "");
    EXPECT_EQ(DirName(files(), At("FOLDER\\SONG.MP3"), kDirFiles), "Song.mp3");
    EXPECT_EQ(DirName(files(), At("folder\\"), kDirAll), "Folder");
    EXPECT_EQ(DirName(files(), At("folder"), kDirFiles), "");
    EXPECT_EQ(DirName(files(), At("folder\\*"), kDirAll), "");
    EXPECT_EQ(DirName(files(), "", kDirAll), "");
    EXPECT_EQ(DirName(files(), Root().substr(0, 2) + "\\", kDirAll), Root().substr(0, 2));
}

TEST_P(FileSystemConformance, DirOpensFoldersByTheirShortPath) {
    disk().MakeFile("A long folder name\\a", "");
    const auto folder = files().ShortPath(At("A long folder name"));
    ASSERT_TRUE(folder);
    Dir dir(files());
    EXPECT_EQ(AllOf(dir, *folder + "\\", kDirAll), std::vector<std::string>{"a"});
}

TEST_P(FileSystemConformance, DirListsNamesThatAreNoText) {
    if (!disk().MakeBadName("", "caf\xE9.txt")) GTEST_SKIP() << "not on this disk";
    Dir dir(files());
    EXPECT_EQ(AllOf(dir, At("*.txt"), kDirFiles), std::vector<std::string>{"caf\uF0E9.txt"});
}

} // namespace tarvix::platform
