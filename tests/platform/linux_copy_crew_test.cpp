// Folders that are copied whole, on several threads, under a name that isn't theirs yet.

#include "tests/platform/linux_disk.h"

#include <chrono>
#include <thread>

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;

class LinuxCopyCrewTest : public testing::Test {
  protected:
    FileSystem& files() { return disk.Files(); }
    std::string At(std::string_view path) const { return disk.Root() + "\\" + std::string(path); }

    // "from" with folders "0" ..., each with as many files, and an empty folder "to".
    void MakeFiles(int folders, int inEach) {
        for (int i = 0; i < folders; ++i) {
            for (int j = 0; j < inEach; ++j)
                disk.MakeFile(Name(i, j), Text(i, j));
        }
        disk.MakeFolder("to");
    }
    static std::string Name(int folder, int file) {
        return "from\\" + std::to_string(folder) + "\\" + std::to_string(file);
    }
    static std::string Text(int folder, int file) {
        return "content " + std::to_string(folder * 1000 + file);
    }
    int Copy(const CopyObserver& observer = {}) {
        return NumberOf(files().CopyFolder(At("from"), At("to\\copy"), false, observer));
    }
    std::string Copied(const std::string& path) {
        return disk.Content("to\\copy\\" + path).value_or("(none)");
    }

    LinuxDisk disk{{.sizeAfter = 0}};
};
} // namespace

TEST_F(LinuxCopyCrewTest, AllFilesOfManyFoldersAreCopied) {
    MakeFiles(40, 15);
    ASSERT_EQ(Copy(), 0);
    for (int i = 0; i < 40; ++i) {
        for (int j = 0; j < 15; ++j)
            ASSERT_EQ(disk.Content("to\\copy" + Name(i, j).substr(4)), Text(i, j));
    }
    EXPECT_EQ(disk.Names("to"), List{"copy"});
}

TEST_F(LinuxCopyCrewTest, FoldersKeepTheirDatesThoughTheirFilesComeLater) {
    MakeFiles(30, 12);
    for (int i = 0; i < 30; ++i)
        disk.SetModified("from\\" + std::to_string(i), 1'500'000'000'000'000'000 + i);
    disk.SetModified("from", 1'400'000'000'000'000'000);
    ASSERT_EQ(Copy(), 0);
    for (int i = 0; i < 30; ++i) {
        const auto facts = files().Facts(At("to\\copy\\" + std::to_string(i)));
        EXPECT_EQ(facts->modified, 1'500'000'000'000'000'000 + i);
    }
    EXPECT_EQ(files().Facts(At("to\\copy"))->modified, 1'400'000'000'000'000'000);
}

TEST_F(LinuxCopyCrewTest, NothingBearsItsNameBeforeAllIsCopied) {
    MakeFiles(10, 20);
    int calls = 0;
    const auto observer = [&](const CopyProgress&) {
        ++calls;
        EXPECT_FALSE(files().Facts(At("to\\copy")));
        return true;
    };
    ASSERT_EQ(Copy(observer), 0);
    EXPECT_GE(calls, 200);
}

TEST_F(LinuxCopyCrewTest, ItCanBeAbandonedAtEachFileAndLeavesNothing) {
    MakeFiles(10, 20);
    for (const int at : {1, 2, 30, 31, 150, 300}) {
        int calls = 0;
        const auto no = [&](const CopyProgress&) { return ++calls < at; };
        EXPECT_EQ(Copy(no), kInterrupted) << at;
        EXPECT_EQ(calls, at);
        EXPECT_EQ(disk.Names("to"), List{});
    }
}

TEST_F(LinuxCopyCrewTest, AFileThatWentMeanwhileFailsAndLeavesNothing) {
    MakeFiles(1, 300);
    std::string last;
    const auto observer = [&](const CopyProgress& progress) {
        last = progress.path;
        std::filesystem::remove(disk.Native("from\\0\\99"));
        return true;
    };
    EXPECT_EQ(Copy(observer), kFileNotFound);
    EXPECT_EQ(last, At("from\\0\\99"));
    EXPECT_EQ(disk.Names("to"), List{});
}

TEST_F(LinuxCopyCrewTest, LargeFilesAndLinksGoWithTheSmallOnes) {
    MakeFiles(3, 30);
    disk.MakeFile("from\\1\\15 large", std::string(3'000'000, 'x'));
    disk.MakeLink("from\\1\\16 link", "from\\0");
    disk.MakeFile("from\\1\\17 empty", "");
    ASSERT_EQ(Copy(), 0);
    EXPECT_TRUE(Copied("1\\15 large") == std::string(3'000'000, 'x'));
    EXPECT_EQ(Copied("1\\17 empty"), "");
    EXPECT_EQ(Copied("1\\29"), Text(1, 29));
    EXPECT_NE(files().Facts(At("to\\copy\\1\\16 link"))->attributes & kAlias, 0u);
}

TEST_F(LinuxCopyCrewTest, AFileThatChangesWhileItIsCopiedIsCopiedAgain) {
    MakeFiles(1, 20);
    disk.MakeFile("from\\0\\large", std::string(500'000, 'x'));
    disk.SetModified("from\\0\\large", 1'400'000'000'000'000'000);
    bool isChanged = false;
    const auto observer = [&](const CopyProgress& progress) {
        const bool isIt = progress.path == At("from\\0\\large");
        if (isIt && progress.bytesDone >= 500'000 && !std::exchange(isChanged, true)) {
            disk.MakeFile("from\\0\\large", "changed");
        }
        return true;
    };
    ASSERT_EQ(Copy(observer), 0);
    EXPECT_TRUE(isChanged);
    EXPECT_EQ(Copied("0\\large"), "changed");
}

TEST_F(LinuxCopyCrewTest, ItsSizeIsToldOnceItIsKnownAndStaysTrue) {
    MakeFiles(20, 100);
    std::uint64_t bytes = 0;
    for (int i = 0; i < 20; ++i) {
        for (int j = 0; j < 100; ++j)
            bytes += Text(i, j).size();
    }
    CopyProgress last;
    const auto observer = [&](const CopyProgress& progress) {
        if (progress.bytesTotal == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        EXPECT_TRUE(last.bytesTotal == 0 || progress.bytesTotal == bytes);
        EXPECT_GE(progress.bytesDone, last.bytesDone);
        last = progress;
        return true;
    };
    ASSERT_EQ(Copy(observer), 0);
    EXPECT_EQ(last.bytesTotal, bytes);
    EXPECT_EQ(last.bytesDone, bytes);
}

TEST_F(LinuxCopyCrewTest, WhatComesToItMeanwhileNeverMakesItMoreThanWhole) {
    MakeFiles(20, 100);
    bool isKnown = false;
    const auto observer = [&](const CopyProgress& progress) {
        if (progress.bytesTotal == 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        } else if (!std::exchange(isKnown, true)) {
            disk.MakeFile(Name(9, 99), std::string(100'000, 'x'));
        }
        EXPECT_TRUE(!isKnown || progress.bytesDone <= progress.bytesTotal);
        return true;
    };
    ASSERT_EQ(Copy(observer), 0);
    EXPECT_TRUE(isKnown);
}

} // namespace tarvix::platform
