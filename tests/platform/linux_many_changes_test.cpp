// Folders that are held open while a run of calls works in them.

#include "tests/platform/linux_disk.h"

#include <thread>

namespace tarvix::platform {

namespace {
class LinuxManyChangesTest : public testing::Test {
  protected:
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) const { return disk_.Root() + "\\" + std::string(path); }
    bool Exists(std::string_view path) { return files().Facts(At(path)).has_value(); }
    Result<void> Copy(std::string_view from, std::string_view to) {
        return files().CopyFile(At(from), At(to), false, {});
    }
    Result<void> Move(std::string_view from, std::string_view to) {
        return files().MoveFile(At(from), At(to), {});
    }
    Result<void> Recycle(std::string_view path) {
        return disk_.Bin().Recycle(std::vector{At(path)}, {});
    }
    // Asks for an object so often that its folder is held, even on a machine that is busy.
    void Hold(std::string_view path) {
        for (int i = 0; i < 20 || (CountHeld() == 0 && i < 2000); ++i)
            ASSERT_TRUE(Exists(path)) << path;
        ASSERT_GT(CountHeld(), 0u);
    }
    // The descriptors of this program that lead to or below the test's folder.
    std::size_t CountHeld() const {
        const std::string root = std::filesystem::path(disk_.Native("")).parent_path();
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code none;
            const std::string target = std::filesystem::read_symlink(entry.path(), none);
            count += target.starts_with(root) ? 1 : 0;
        }
        return count;
    }
    void RenameByOthers(std::string_view from, std::string_view to) {
        ASSERT_EQ(::rename(disk_.Native(from).c_str(), disk_.Native(to).c_str()), 0);
    }
    // Puts a file into the folder now at "f" by our calls and sees that it is in that one alone.
    void ExpectFolderIsReached(std::string_view other) {
        EXPECT_FALSE(Exists("f\\old"));
        EXPECT_TRUE(Copy("source", "f\\copy"));
        EXPECT_EQ(disk_.Content("f\\copy"), "from");
        EXPECT_EQ(disk_.Content(std::string(other) + "\\copy"), std::nullopt);
    }

    LinuxDisk disk_;
};

// Waits longer than a held folder is trusted.
void LetTrustPass() {
    ::usleep(20'000);
}
} // namespace

TEST_F(LinuxManyChangesTest, ManyCallsInOneFolder) {
    disk_.MakeFile("f\\source", "content");
    const ManyChanges many(files());
    bool wasHeld = false; // at any time: a busy machine lets a folder's time pass between two calls
    for (int i = 0; i < 50; ++i) {
        const std::string number = std::to_string(i);
        ASSERT_FALSE(Exists("f\\copy " + number));
        wasHeld = wasHeld || CountHeld() > 0;
        ASSERT_TRUE(Copy("f\\source", "f\\copy " + number));
        ASSERT_TRUE(Move("f\\copy " + number, "f\\moved " + number));
        ASSERT_FALSE(Exists("f\\copy " + number));
        ASSERT_EQ(disk_.Content("f\\moved " + number), "content");
    }
    EXPECT_EQ(disk_.Names("f").size(), 51u);
    EXPECT_TRUE(wasHeld);
}

TEST_F(LinuxManyChangesTest, MoreFoldersInTurnThanAreHeld) {
    const ManyChanges many(files());
    for (int folder = 0; folder < 9; ++folder) {
        const std::string name = std::to_string(folder);
        disk_.MakeFile("f" + name + "\\deep\\source", "content of " + name);
    }
    for (int round = 0; round < 20; ++round) {
        for (int folder = 0; folder < 9; ++folder) {
            // The first few are asked for more often, so that they become held and others push
            // them out again.
            const std::string name = std::to_string(folder);
            const std::string in = "f" + name + "\\deep\\";
            for (int again = folder; again < 9; ++again)
                ASSERT_TRUE(Exists(in + "source"));
            ASSERT_TRUE(Copy(in + "source", in + "copy"));
            ASSERT_EQ(disk_.Content(in + "copy"), "content of " + name);
            ASSERT_EQ(files().ReadBytes(At(in + "COPY"), 0, 20).value_or("none"),
                      "content of " + name);
            ASSERT_TRUE(files().DeleteFile(At(in + "copy"), false));
            ASSERT_EQ(disk_.Names("f" + name + "\\deep").size(), 1u);
        }
    }
}

TEST_F(LinuxManyChangesTest, AFolderThatOthersReplacedIsSeenShortly) {
    disk_.MakeFile("f\\old", "1");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    RenameByOthers("f", "g");
    disk_.MakeFile("f\\new", "2");
    LetTrustPass();
    EXPECT_TRUE(Exists("f\\new"));
    ExpectFolderIsReached("g");
}

TEST_F(LinuxManyChangesTest, AFolderThatOthersTookAwayIsSeenShortly) {
    disk_.MakeFile("f\\old", "1");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    RenameByOthers("f", "g");
    LetTrustPass();
    EXPECT_EQ(NumberOf(files().Facts(At("f\\old"))), kPathNotFound);
    EXPECT_EQ(NumberOf(Copy("source", "f\\copy")), kPathNotFound);
    EXPECT_EQ(NumberOf(files().DeleteFile(At("f\\old"), true)), kPathNotFound);
    EXPECT_EQ(disk_.Content("g\\old"), "1");
    EXPECT_EQ(disk_.Names("g").size(), 1u);
}

TEST_F(LinuxManyChangesTest, AFolderOnTheWayThatOthersReplacedIsSeenShortly) {
    disk_.MakeFile("p\\f\\old", "1");
    const ManyChanges many(files());
    Hold("p\\f\\old");
    RenameByOthers("p", "q");
    disk_.MakeFile("p\\f\\new", "2");
    LetTrustPass();
    EXPECT_TRUE(Exists("p\\f\\new"));
    EXPECT_FALSE(Exists("p\\f\\old"));
}

TEST_F(LinuxManyChangesTest, ALinkThatOthersTurnedElsewhereIsSeenShortly) {
    disk_.MakeFile("one\\old", "1");
    disk_.MakeFile("two\\new", "2");
    disk_.MakeLink("f", "one");
    const ManyChanges many(files());
    Hold("f\\old");
    ASSERT_EQ(::unlink(disk_.Native("f").c_str()), 0);
    disk_.MakeLink("f", "two");
    LetTrustPass();
    EXPECT_TRUE(Exists("f\\new"));
    EXPECT_FALSE(Exists("f\\old"));
}

TEST_F(LinuxManyChangesTest, AFolderThatWeMovedIsSeenAtOnce) {
    disk_.MakeFile("f\\old", "1");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    ASSERT_TRUE(files().MoveFolder(At("f"), At("g")));
    EXPECT_FALSE(Exists("f\\old"));
    EXPECT_TRUE(Exists("g\\old"));
    ASSERT_TRUE(files().CreateFolder(At("f")));
    ExpectFolderIsReached("g");
}

TEST_F(LinuxManyChangesTest, AFolderThatWeMovedWithAnotherPutInItsPlaceIsSeenAtOnce) {
    disk_.MakeFile("f\\old", "1");
    disk_.MakeFile("h\\new", "2");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    Hold("h\\new");
    ASSERT_TRUE(files().MoveFolder(At("f"), At("g")));
    ASSERT_TRUE(files().MoveFolder(At("h"), At("f")));
    EXPECT_TRUE(Exists("f\\new"));
    EXPECT_FALSE(Exists("h\\new"));
    ExpectFolderIsReached("g");
}

TEST_F(LinuxManyChangesTest, AFolderOnTheWayThatWeMovedIsSeenAtOnce) {
    disk_.MakeFile("p\\f\\old", "1");
    const ManyChanges many(files());
    Hold("p\\f\\old");
    ASSERT_TRUE(files().MoveFolder(At("p"), At("q")));
    EXPECT_FALSE(Exists("p\\f\\old"));
    ASSERT_TRUE(files().CreateFolder(At("p")));
    ASSERT_TRUE(files().CreateFolder(At("p\\f")));
    EXPECT_FALSE(Exists("p\\f\\old"));
    EXPECT_TRUE(Exists("q\\f\\old"));
}

TEST_F(LinuxManyChangesTest, AFolderThatChangedOnlyItsCaseIsSeenAtOnce) {
    disk_.MakeFile("f\\old", "1");
    const ManyChanges many(files());
    Hold("f\\old");
    ASSERT_TRUE(files().MoveFolder(At("f"), At("F")));
    EXPECT_EQ(files().TruePath(At("f\\old")).value_or("none"), At("F\\old"));
}

TEST_F(LinuxManyChangesTest, AFolderThatWeRemovedIsSeenAtOnce) {
    disk_.MakeFile("f\\old", "1");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    ASSERT_TRUE(files().DeleteFile(At("f\\old"), false));
    ASSERT_TRUE(files().RemoveFolder(At("f")));
    EXPECT_EQ(NumberOf(Copy("source", "f\\copy")), kPathNotFound);
    ASSERT_TRUE(files().CreateFolder(At("f")));
    ExpectFolderIsReached("g");
}

TEST_F(LinuxManyChangesTest, AFolderThatWeRecycledIsSeenAtOnce) {
    disk_.MakeFile("f\\old", "1");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    ASSERT_TRUE(Recycle("f"));
    EXPECT_FALSE(Exists("f\\old"));
    ASSERT_TRUE(files().CreateFolder(At("f")));
    ExpectFolderIsReached("g");
    ASSERT_TRUE(Recycle("f\\copy"));
    ASSERT_TRUE(files().RemoveFolder(At("f")));
    ASSERT_TRUE(disk_.Restore("f"));
    EXPECT_EQ(disk_.Names("f"), std::vector<std::string>{"old"});
}

TEST_F(LinuxManyChangesTest, ALinkToAFolderThatWeMovedIsSeenAtOnce) {
    disk_.MakeFile("target\\old", "1");
    disk_.MakeLink("f", "target");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    ASSERT_TRUE(files().MoveFolder(At("f"), At("g")));
    ASSERT_TRUE(files().CreateFolder(At("f")));
    ExpectFolderIsReached("target");
}

TEST_F(LinuxManyChangesTest, ALinkToAFolderThatWeDeletedIsSeenAtOnce) {
    disk_.MakeFile("target\\old", "1");
    disk_.MakeLink("f", "target");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    ASSERT_TRUE(files().DeleteFile(At("f"), false));
    ASSERT_TRUE(files().CreateFolder(At("f")));
    ExpectFolderIsReached("target");
}

TEST_F(LinuxManyChangesTest, ALinkToAFolderThatWeRecycledIsSeenAtOnce) {
    disk_.MakeFile("target\\old", "1");
    disk_.MakeLink("f", "target");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    ASSERT_TRUE(Recycle("f"));
    ASSERT_TRUE(files().CreateFolder(At("f")));
    ExpectFolderIsReached("target");
}

TEST_F(LinuxManyChangesTest, ALinkOnTheWayThatWeMovedIsSeenAtOnce) {
    disk_.MakeFile("target\\f\\old", "1");
    disk_.MakeLink("p", "target");
    const ManyChanges many(files());
    Hold("p\\f\\old");
    ASSERT_TRUE(files().MoveFile(At("p"), At("q"), {}));
    EXPECT_FALSE(Exists("p\\f\\old"));
    EXPECT_TRUE(Exists("q\\f\\old"));
}

TEST_F(LinuxManyChangesTest, AFolderThatOthersTookAwayAndWeMadeAgainIsReachedAtOnce) {
    disk_.MakeFile("f\\old", "1");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    RenameByOthers("f", "g");
    ASSERT_TRUE(files().CreateFolder(At("f")));
    ExpectFolderIsReached("g");
}

TEST_F(LinuxManyChangesTest, AFolderThatOthersTookAwayAndWeCopiedThereIsReachedAtOnce) {
    disk_.MakeFile("f\\old", "1");
    disk_.MakeFile("h\\new", "2");
    disk_.MakeFile("source", "from");
    const ManyChanges many(files());
    Hold("f\\old");
    RenameByOthers("f", "g");
    ASSERT_TRUE(files().CopyFolder(At("h"), At("f"), false, {}));
    EXPECT_TRUE(Exists("f\\new"));
    ExpectFolderIsReached("g");
}

TEST_F(LinuxManyChangesTest, NothingIsHeldOpenOtherwise) {
    disk_.MakeFile("f\\a", "1");
    for (int i = 0; i < 20; ++i)
        ASSERT_TRUE(Exists("f\\a"));
    EXPECT_EQ(CountHeld(), 0u);
    {
        const ManyChanges many(files());
        Hold("f\\a");
    }
    EXPECT_EQ(CountHeld(), 0u);
    for (int i = 0; i < 20; ++i)
        ASSERT_TRUE(Exists("f\\a"));
    EXPECT_EQ(CountHeld(), 0u);
}

TEST_F(LinuxManyChangesTest, FoldersStayHeldUntilTheLastOfNestedOnesEnds) {
    disk_.MakeFile("f\\a", "1");
    {
        const ManyChanges outer(files());
        {
            const ManyChanges inner(files());
            Hold("f\\a");
        }
        EXPECT_GT(CountHeld(), 0u);
        ASSERT_TRUE(Copy("f\\a", "f\\b"));
        EXPECT_EQ(disk_.Content("f\\b"), "1");
    }
    EXPECT_EQ(CountHeld(), 0u);
    const ManyChanges again(files());
    Hold("f\\a");
}

TEST_F(LinuxManyChangesTest, AnotherThreadHoldsNothing) {
    disk_.MakeFile("f\\a", "1");
    const ManyChanges many(files());
    Hold("f\\a");
    const std::size_t held = CountHeld();
    bool isAllFound = true;
    std::jthread([&] {
        for (int i = 0; i < 50; ++i)
            isAllFound = Exists("f\\a") && isAllFound;
    }).join();
    EXPECT_TRUE(isAllFound);
    EXPECT_EQ(CountHeld(), held);
}

TEST_F(LinuxManyChangesTest, PathsLongerThanTheSystemTakesWork) {
    // Names of 83 characters, each of them three bytes; the limit lies between two of the levels.
    std::string name;
    for (int i = 0; i < 83; ++i)
        name += "\xE2\x82\xAC";
    const ManyChanges many(files());
    std::string path = disk_.Root();
    for (int level = 0; level < 25; ++level) {
        path += "\\" + name;
        ASSERT_TRUE(files().CreateFolder(path)) << level;
        ASSERT_TRUE(files().CreateTextFile(path + "\\a.txt", false)) << level;
        for (int i = 0; i < 10; ++i) {
            ASSERT_TRUE(files().Facts(path + "\\a.txt")) << level;
            ASSERT_TRUE(files().CopyFile(path + "\\a.txt", path + "\\b.txt", false, {})) << level;
            ASSERT_TRUE(files().MoveFile(path + "\\b.txt", path + "\\c.txt", {})) << level;
            ASSERT_EQ(files().TruePath(path + "\\C.TXT").value_or("none"), path + "\\c.txt")
                << level;
            ASSERT_TRUE(files().DeleteFile(path + "\\c.txt", false)) << level;
        }
    }
}

TEST_F(LinuxManyChangesTest, FilesOfADrivesOwnFolderAreFound) {
    const std::string native = std::filesystem::path(disk_.Native("")).parent_path();
    std::ofstream(native + "/top") << "1";
    const ManyChanges many(files());
    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(files().Facts("T:\\top"));
        ASSERT_TRUE(files().Facts("T:\\"));
        ASSERT_TRUE(files().Facts("C:\\"));
        ASSERT_TRUE(files().Facts("C:\\proc"));
        ASSERT_EQ(files().TruePath("T:\\TOP").value_or("none"), "T:\\top");
    }
}

} // namespace tarvix::platform
