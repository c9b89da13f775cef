#include "tests/platform/linux_disk.h"

namespace tarvix::platform {

namespace {
class LinuxLookupTest : public testing::Test {
  protected:
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) const { return disk_.Root() + "\\" + std::string(path); }
    bool Exists(std::string_view path) { return files().Facts(At(path)).has_value(); }

    LinuxDisk disk_;
};

// Waits until new dates of the file system differ from those just given.
void LetDatesPass() {
    ::usleep(40'000);
}
} // namespace

TEST_F(LinuxLookupTest, WhatOthersAddAndTakeAwayIsSeen) {
    disk_.MakeFile("one.txt", "");
    EXPECT_TRUE(Exists("ONE.TXT"));
    EXPECT_FALSE(Exists("TWO.TXT"));
    disk_.MakeFile("two.txt", "");
    EXPECT_TRUE(Exists("TWO.TXT"));
    ::unlink(disk_.Native("one.txt").c_str());
    EXPECT_FALSE(Exists("ONE.TXT"));
    LetDatesPass();
    EXPECT_FALSE(Exists("THREE.TXT"));
    disk_.MakeFile("three.txt", "");
    EXPECT_TRUE(Exists("THREE.TXT"));
    ::rename(disk_.Native("three.txt").c_str(), disk_.Native("four.txt").c_str());
    EXPECT_FALSE(Exists("THREE.TXT"));
    EXPECT_TRUE(Exists("FOUR.TXT"));
}

TEST_F(LinuxLookupTest, OurOwnChangesAreSeenAtOnce) {
    for (int i = 0; i < 300; ++i) {
        const std::string name = "File " + std::to_string(i);
        ASSERT_FALSE(Exists("FILE " + std::to_string(i)));
        ASSERT_TRUE(files().CreateFolder(At(name)));
        ASSERT_TRUE(Exists("FILE " + std::to_string(i)));
        if (i % 3 == 0) {
            ASSERT_TRUE(files().RemoveFolder(At(name)));
            ASSERT_FALSE(Exists("FILE " + std::to_string(i)));
        } else if (i % 3 == 1) {
            ASSERT_TRUE(files().MoveFolder(At(name), At("Moved " + std::to_string(i))));
            ASSERT_FALSE(Exists("FILE " + std::to_string(i)));
            ASSERT_TRUE(Exists("MOVED " + std::to_string(i)));
        }
    }
}

TEST_F(LinuxLookupTest, OthersAreSeenShortlyEvenWhileWeChangeTheFolder) {
    ASSERT_TRUE(files().CreateFolder(At("ours")));
    EXPECT_FALSE(Exists("THEIRS"));
    ASSERT_TRUE(files().CreateFolder(At("ours 2")));
    disk_.MakeFile("theirs", "");
    LetDatesPass();
    EXPECT_TRUE(Exists("THEIRS"));
}

TEST_F(LinuxLookupTest, OthersAreSeenShortlyInALargeFolder) {
    for (int i = 0; i < 4000; ++i)
        disk_.MakeFile("A name " + std::to_string(i), "");
    EXPECT_FALSE(Exists("THEIRS"));
    disk_.MakeFile("theirs", "");
    for (int i = 0; i < 500 && !Exists("THEIRS"); ++i)
        LetDatesPass();
    EXPECT_TRUE(Exists("THEIRS"));
    EXPECT_TRUE(Exists("A NAME 3999"));
    ::unlink(disk_.Native("theirs").c_str());
    EXPECT_FALSE(Exists("THEIRS"));
}

TEST_F(LinuxLookupTest, AFolderMovedAwayAndAnotherInItsPlace) {
    disk_.MakeFile("folder\\a.txt", "");
    EXPECT_TRUE(Exists("folder\\A.TXT"));
    ::rename(disk_.Native("folder").c_str(), disk_.Native("old").c_str());
    EXPECT_FALSE(Exists("folder\\A.TXT"));
    disk_.MakeFile("folder\\b.txt", "");
    EXPECT_FALSE(Exists("folder\\A.TXT"));
    EXPECT_TRUE(Exists("folder\\B.TXT"));
    EXPECT_TRUE(Exists("OLD\\A.TXT"));
}

TEST_F(LinuxLookupTest, NamesThatDifferInCaseAloneStayApartWhenOneGoes) {
    disk_.MakeFile("song", "1");
    disk_.MakeFile("Song", "2");
    EXPECT_EQ(*files().TruePath(At("SONG")), At("Song"));
    ASSERT_TRUE(files().DeleteFile(At("Song"), false));
    EXPECT_EQ(*files().TruePath(At("SONG")), At("song"));
}

TEST_F(LinuxLookupTest, PathsLongerThanTheSystemTakes) {
    // Names of 83 characters, each of them three bytes: 25 levels are more than 6,000 bytes.
    std::string name;
    for (int i = 0; i < 83; ++i)
        name += "\xE2\x82\xAC";
    std::string path = disk_.Root();
    for (int level = 0; level < 25; ++level) {
        path += "\\" + name;
        ASSERT_TRUE(files().CreateFolder(path)) << level;
    }
    auto stream = files().CreateTextFile(path + "\\a.txt", false);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Write("deep"));
    ASSERT_TRUE((*stream)->Close());
    EXPECT_EQ(*files().ReadBytes(path + "\\A.TXT", 0, 10), "deep");
    EXPECT_EQ(*files().TruePath(path + "\\A.TXT"), path + "\\a.txt");
    EXPECT_TRUE(files().CopyFile(path + "\\a.txt", path + "\\b.txt", false, {}));
    EXPECT_TRUE(files().MoveFile(path + "\\b.txt", path + "\\c.txt", {}));
    FolderListing listing;
    const auto folder = files().Open(path);
    ASSERT_TRUE(folder);
    ASSERT_TRUE((*folder)->List(listing));
    EXPECT_EQ(listing.Size(), 2u);
    EXPECT_EQ((*folder)->Facts("c.txt")->size, 4u);
    ASSERT_TRUE(files().CopyFolder(At(name), At("copy"), false, {}));
    std::string copied = At("copy") + path.substr(At(name).size());
    EXPECT_EQ(*files().ReadBytes(copied + "\\c.txt", 0, 10), "deep");
    const auto shortPath = files().ShortPath(path + "\\a.txt");
    ASSERT_TRUE(shortPath);
    EXPECT_LT(shortPath->size(), 400u);
    EXPECT_EQ(*files().ReadBytes(*shortPath, 0, 10), "deep");
    EXPECT_TRUE(files().DeleteFile(path + "\\a.txt", false));
}

TEST_F(LinuxLookupTest, FoldersDeeperThanThereAreDescriptors) {
    std::string path = "deep";
    for (int level = 0; level < 700; ++level) {
        disk_.Files().CreateFolder(At(path));
        path += "\\d";
    }
    disk_.MakeFile("deep\\d\\x", "1");
    ASSERT_TRUE(files().CreateFolder(At(path)));
    ASSERT_TRUE(files().CreateTextFile(At(path + "\\bottom"), false));
    ASSERT_TRUE(files().CopyFolder(At("deep"), At("copy"), false, {}));
    path.replace(0, 4, "copy");
    EXPECT_TRUE(Exists(path + "\\bottom"));
    EXPECT_TRUE(Exists("copy\\d\\x"));
}

TEST_F(LinuxLookupTest, PseudoFileSystemsAreMarkedWhereverOneStarts) {
    struct stat root {};
    struct stat proc {};
    if (::stat("/", &root) != 0 || ::stat("/proc", &proc) != 0 || root.st_dev == proc.st_dev) {
        GTEST_SKIP() << "no /proc here";
    }
    std::filesystem::create_symlink("/", disk_.Native("link"));
    for (const std::string& start : {std::string("C:\\"), At("link")}) {
        const auto folder = files().Open(start);
        ASSERT_TRUE(folder);
        FolderListing listing;
        ASSERT_TRUE((*folder)->List(listing));
        bool isSeen = false;
        for (std::size_t i = 0; i < listing.Size(); ++i) {
            if (listing[i].name == "proc") {
                isSeen = true;
                EXPECT_TRUE(listing[i].isBoundary) << start;
                EXPECT_FALSE(listing[i].IsWalkable());
            } else if (listing[i].name == "usr") {
                EXPECT_FALSE(listing[i].isBoundary) << start;
            }
        }
        EXPECT_TRUE(isSeen);
    }
}

TEST_F(LinuxLookupTest, NamesThatAreNotUtf8AreListedAndCopiedWithTheirFolder) {
    disk_.MakeFolder("from");
    const std::string bad = disk_.Native("from") + "/b\xFF"
                                                   "d";
    std::ofstream(bad) << "content";
    ASSERT_TRUE(files().CopyFolder(At("from"), At("to"), false, {}));
    std::ifstream copied(disk_.Native("to") + "/b\xFF"
                                              "d");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(copied), {}), "content");
    EXPECT_TRUE(files().Facts(At("from\\b\uF0FFd")));
}

TEST_F(LinuxLookupTest, AFileThatWeWroteOverAfterALookIsCopiedAsItIsNow) {
    disk_.MakeFile("new", "a content that is longer");
    disk_.SetModified("new", 1'000'000'000'000'000'000);
    for (int i = 0; i < 20; ++i) {
        const std::string file = "file " + std::to_string(i);
        disk_.MakeFile(file, "old");
        ASSERT_TRUE(Exists(file));
        ASSERT_TRUE(files().CopyFile(At("new"), At(file), true, {}));
        ASSERT_TRUE(files().CopyFile(At(file), At(file + " copy"), false, {}));
        EXPECT_EQ(disk_.Content(file + " copy"), "a content that is longer");
        EXPECT_EQ(files().Facts(At(file + " copy"))->modified, 1'000'000'000'000'000'000);
    }
}

TEST_F(LinuxLookupTest, AFileThatWeWroteOverAfterALookGetsItsNameInAnotherCase) {
    disk_.MakeFile("new", "new");
    for (int i = 0; i < 20; ++i) {
        const std::string number = std::to_string(i);
        disk_.MakeFile("file " + number, "old");
        ASSERT_TRUE(Exists("file " + number));
        ASSERT_TRUE(files().CopyFile(At("new"), At("file " + number), true, {}));
        EXPECT_EQ(NumberOf(files().MoveFile(At("file " + number), At("File " + number), {})), 0);
        EXPECT_EQ(disk_.Content("File " + number), "new");
    }
}

TEST_F(LinuxLookupTest, AFileThatWeAddedToAfterALookIsCopiedAsItIsNow) {
    for (int i = 0; i < 20; ++i) {
        const std::string file = "file " + std::to_string(i);
        disk_.MakeFile(file, "old");
        ASSERT_TRUE(Exists(file));
        {
            auto stream = files().OpenAsTextStream(At(file), OpenMode::kAppend);
            ASSERT_TRUE(stream);
            ASSERT_TRUE((*stream)->Write(" and new"));
            ASSERT_TRUE((*stream)->Close());
        }
        ASSERT_TRUE(files().CopyFile(At(file), At(file + " copy"), false, {}));
        EXPECT_EQ(disk_.Content(file + " copy"), "old and new");
    }
}

TEST_F(LinuxLookupTest, AttributesThatWeSetAfterALookAreThoseOfACopy) {
    for (int i = 0; i < 20; ++i) {
        const std::string file = "file " + std::to_string(i);
        disk_.MakeFile(file, "content");
        ASSERT_TRUE(Exists(file));
        ASSERT_TRUE(files().SetAttributes(At(file), kReadOnly));
        ASSERT_TRUE(files().CopyFile(At(file), At(file + " copy"), false, {}));
        EXPECT_NE(files().Facts(At(file + " copy"))->attributes & kReadOnly, 0u) << i;
        ASSERT_TRUE(files().SetAttributes(At(file), 0));
    }
}

TEST(LinuxLooks, AnotherFileSystemThatLiesWhereOneWasLooksForItself) {
    const TemporaryFolder one;
    const TemporaryFolder two;
    std::ofstream(one.Path() + "/a.txt") << "one";
    std::ofstream(two.Path() + "/b.txt") << "two";
    Mounts first({{'T', one.Path()}});
    Mounts second({{'T', two.Path()}});
    std::optional<LinuxFileSystem> files;
    files.emplace(first);
    EXPECT_FALSE(files->Facts("T:\\NONE"));
    EXPECT_TRUE(files->Facts("T:\\a.txt"));
    EXPECT_TRUE(files->KnownFree("T:\\b.txt"));
    files.emplace(second);
    EXPECT_EQ(NumberOf(files->MoveFile("T:\\a.txt", "T:\\c.txt", {})), kFileNotFound);
    files.emplace(first);
    EXPECT_FALSE(files->Facts("T:\\NONE"));
    EXPECT_TRUE(files->KnownFree("T:\\c.txt"));
    files.emplace(second);
    EXPECT_TRUE(files->MoveFile("T:\\b.txt", "T:\\c.txt", {}));
    EXPECT_TRUE(std::filesystem::exists(one.Path() + "/a.txt"));
    EXPECT_FALSE(std::filesystem::exists(one.Path() + "/c.txt"));
    EXPECT_TRUE(std::filesystem::exists(two.Path() + "/c.txt"));
}

} // namespace tarvix::platform
