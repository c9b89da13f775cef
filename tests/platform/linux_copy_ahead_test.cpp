// Copies made on a second thread before they are asked for.

#include "platform/linux/copy_ahead.h"
#include "tests/platform/linux_disk.h"

#include <chrono>
#include <sys/mount.h>
#include <thread>

namespace tarvix::platform {

namespace {
using List = std::vector<std::string>;

class LinuxCopyAheadTest : public testing::Test {
  protected:
    FileSystem& files() { return disk.Files(); }
    std::string At(std::string_view path) const { return disk.Root() + "\\" + std::string(path); }

    // Files "from\0" ... with their numbers as content, and an empty folder "to".
    void MakeFiles(int count) {
        for (int i = 0; i < count; ++i)
            disk.MakeFile("from\\" + std::to_string(i), "content " + std::to_string(i));
        disk.MakeFolder("to");
    }
    void Plan(int begin, int end, const std::string& folder = "to") {
        List paths;
        for (int i = begin; i < end; ++i)
            paths.push_back(At("from\\" + std::to_string(i)));
        const std::string to = At(folder);
        std::vector<PlannedCopy> planned;
        for (const std::string& path : paths)
            planned.push_back({path, to});
        files().CopySoon(planned);
    }
    // Long enough for what was planned to be made.
    static void Wait() { std::this_thread::sleep_for(std::chrono::milliseconds(50)); }
    int Copy(int number, const std::string& to = "to", bool overwrite = false) {
        const std::string name = std::to_string(number);
        return NumberOf(files().CopyFile(At("from\\" + name), At(to + "\\" + name), overwrite, {}));
    }
    std::string Copied(int number) {
        return disk.Content("to\\" + std::to_string(number)).value_or("(none)");
    }

    LinuxDisk disk{{.aheadAge = 0}};
};
} // namespace

TEST_F(LinuxCopyAheadTest, AllPlannedFilesAreCopied) {
    MakeFiles(300);
    for (int i = 0; i < 300; ++i) {
        if (i % 32 == 0) Plan(i, std::min(i + 64, 300));
        ASSERT_EQ(Copy(i), 0) << i;
    }
    for (int i = 0; i < 300; ++i)
        ASSERT_EQ(Copied(i), "content " + std::to_string(i));
}

TEST_F(LinuxCopyAheadTest, NothingIsSeenBeforeItIsAskedForNorAfterwards) {
    MakeFiles(20);
    Plan(0, 20);
    Wait();
    EXPECT_EQ(disk.Names("to"), List{});
    ASSERT_EQ(Copy(3), 0);
    EXPECT_EQ(disk.Names("to"), List{"3"});
    files().CopySoon({});
    EXPECT_EQ(disk.Names("to"), List{"3"});
}

TEST_F(LinuxCopyAheadTest, ASourceChangedMeanwhileIsCopiedAsItIsNow) {
    MakeFiles(10);
    Plan(0, 10);
    Wait();
    disk.MakeFile("from\\4", "CONTENT 4");
    ASSERT_EQ(Copy(4), 0);
    EXPECT_EQ(Copied(4), "CONTENT 4");
}

TEST_F(LinuxCopyAheadTest, ASourceReplacedMeanwhileIsCopiedAsItIsNow) {
    MakeFiles(10);
    disk.SetModified("from\\4", 1'600'000'000'000'000'000);
    Plan(0, 10);
    Wait();
    disk.MakeFile("other", "another 4");
    disk.SetModified("other", 1'600'000'000'000'000'000);
    std::filesystem::rename(disk.Native("other"), disk.Native("from\\4"));
    ASSERT_EQ(Copy(4), 0);
    EXPECT_EQ(Copied(4), "another 4");
}

TEST_F(LinuxCopyAheadTest, AttributesChangedMeanwhileAreCopiedToo) {
    MakeFiles(10);
    Plan(0, 10);
    Wait();
    disk.SetReadOnly("from\\4");
    ASSERT_EQ(Copy(4), 0);
    EXPECT_NE(files().Facts(At("to\\4"))->attributes & kReadOnly, 0u);
}

TEST_F(LinuxCopyAheadTest, ASourceThatWentMeanwhileIsMissing) {
    MakeFiles(10);
    Plan(0, 10);
    Wait();
    std::filesystem::remove(disk.Native("from\\4"));
    EXPECT_EQ(Copy(4), kFileNotFound);
    EXPECT_EQ(disk.Names("to"), List{});
}

TEST_F(LinuxCopyAheadTest, ATargetThatAppearsMeanwhileIsNotReplaced) {
    MakeFiles(10);
    Plan(0, 10);
    Wait();
    disk.MakeFile("to\\4", "rival");
    EXPECT_EQ(Copy(4), kAlreadyExists);
    EXPECT_EQ(Copied(4), "rival");
    EXPECT_EQ(Copy(4, "to", true), 0);
    EXPECT_EQ(Copied(4), "content 4");
}

TEST_F(LinuxCopyAheadTest, ATargetIsReplacedInOneStep) {
    MakeFiles(10);
    disk.MakeFile("to\\4", "old");
    Plan(0, 10);
    Wait();
    EXPECT_EQ(Copy(4, "to", true), 0);
    EXPECT_EQ(Copied(4), "content 4");
    EXPECT_EQ(disk.Names("to"), List{"4"});
}

TEST_F(LinuxCopyAheadTest, ATargetFolderThatWentMeanwhileGives76) {
    MakeFiles(10);
    Plan(0, 10);
    Wait();
    std::filesystem::remove(disk.Native("to"));
    EXPECT_EQ(Copy(4), kPathNotFound);
}

TEST_F(LinuxCopyAheadTest, TheCopyMayGoToAnotherFolderThanWasSaid) {
    MakeFiles(10);
    disk.MakeFolder("elsewhere");
    Plan(0, 10);
    Wait();
    ASSERT_EQ(Copy(4, "elsewhere"), 0);
    EXPECT_EQ(disk.Content("elsewhere\\4"), "content 4");
}

TEST_F(LinuxCopyAheadTest, TheCopyMayGoToAnotherDiskThanWasSaid) {
    MakeFiles(10);
    disk.MakeFolder("mounted");
    const std::string mounted = disk.Native("mounted");
    if (::mount("tmpfs", mounted.c_str(), "tmpfs", 0, "size=1m") != 0) {
        GTEST_SKIP() << "no right to mount";
    }
    Plan(0, 10);
    Wait();
    EXPECT_EQ(Copy(4, "mounted"), 0);
    EXPECT_EQ(disk.Content("mounted\\4"), "content 4");
    ::umount2(mounted.c_str(), MNT_DETACH);
}

TEST_F(LinuxCopyAheadTest, FilesMayBeSkippedRepeatedAndTakenInAnyOrder) {
    MakeFiles(60);
    Plan(0, 60);
    for (const int i : {5, 6, 3, 7, 50, 20, 51}) {
        ASSERT_EQ(Copy(i), 0) << i;
        EXPECT_EQ(Copied(i), "content " + std::to_string(i));
    }
    EXPECT_EQ(Copy(51), kAlreadyExists);
}

TEST_F(LinuxCopyAheadTest, APlanThatIsAllWrongDoesNoHarm) {
    MakeFiles(5);
    disk.MakeFolder("from\\folder");
    disk.MakeLink("from\\link", "from\\1");
    ASSERT_TRUE(disk.MakeFifo("from\\pipe"));
    const List paths{At("from\\folder"), At("from\\link"), At("from\\pipe"),
                     At("missing\\x"),   "Q:\\x",          "no path",
                     At("from\\2"),      At("from\\2")};
    std::vector<PlannedCopy> planned;
    for (const std::string& path : paths)
        planned.push_back({path, paths[3]});
    files().CopySoon(planned);
    const std::string to = At("to");
    for (PlannedCopy& copy : planned)
        copy.toFolder = to;
    files().CopySoon(planned);
    Wait();
    EXPECT_EQ(Copy(2), 0);
    EXPECT_EQ(Copied(2), "content 2");
    EXPECT_TRUE(files().CopyFile(At("from\\link"), At("to\\link"), false, {}));
    EXPECT_NE(files().Facts(At("to\\link"))->attributes & kAlias, 0u);
}

TEST_F(LinuxCopyAheadTest, AnAbandonedCopyLeavesNothing) {
    MakeFiles(10);
    Plan(0, 10);
    Wait();
    int calls = 0;
    const auto no = [&calls](const CopyProgress&) { return ++calls < 2; };
    EXPECT_EQ(NumberOf(files().CopyFile(At("from\\4"), At("to\\4"), false, no)), kInterrupted);
    EXPECT_EQ(disk.Names("to"), List{});
}

TEST_F(LinuxCopyAheadTest, AMoveIsNotDisturbed) {
    MakeFiles(10);
    Plan(0, 10);
    Wait();
    ASSERT_TRUE(files().MoveFile(At("from\\4"), At("to\\4"), {}));
    EXPECT_EQ(Copied(4), "content 4");
    EXPECT_FALSE(files().Facts(At("from\\4")));
}

TEST_F(LinuxCopyAheadTest, LargeFilesAreLeftToTheCopyItself) {
    disk.MakeFile("from\\0", std::string(3'000'000, 'x'));
    disk.MakeFile("from\\1", std::string(3'000'000, 'y'));
    disk.MakeFolder("to");
    Plan(0, 2);
    Wait();
    ASSERT_EQ(Copy(0), 0);
    ASSERT_EQ(Copy(1), 0);
    EXPECT_EQ(Copied(0).size(), 3'000'000u);
    EXPECT_EQ(Copied(1).back(), 'y');
}

TEST_F(LinuxCopyAheadTest, WhatIsHeldGivesRoomToAFileThatNeedsIt) {
    disk.MakeFolder("mounted");
    const std::string mounted = disk.Native("mounted");
    if (::mount("tmpfs", mounted.c_str(), "tmpfs", 0, "size=1m") != 0) {
        GTEST_SKIP() << "no right to mount";
    }
    for (int i = 0; i < 8; ++i)
        disk.MakeFile("from\\" + std::to_string(i), std::string(200'000, 'x'));
    disk.MakeFile("from\\8", std::string(900'000, 'y'));
    Plan(0, 8, "mounted");
    Wait();
    EXPECT_EQ(Copy(8, "mounted"), 0);
    EXPECT_EQ(disk.Content("mounted\\8").value_or("").size(), 900'000u);
    ::umount2(mounted.c_str(), MNT_DETACH);
}

TEST_F(LinuxCopyAheadTest, AFolderWithManyFilesIsCopiedWhole) {
    MakeFiles(500);
    for (int i = 0; i < 30; ++i) {
        disk.MakeFile("from\\" + std::to_string(i * 10) + " inner\\a", "a" + std::to_string(i));
        disk.MakeFile("from\\" + std::to_string(i * 10) + " inner\\b", "b" + std::to_string(i));
        disk.MakeFile("from\\" + std::to_string(i * 10) + " inner\\c\\d", "d" + std::to_string(i));
    }
    disk.MakeFolder("to\\copy");
    ASSERT_TRUE(files().CopyFolder(At("from"), At("to\\copy"), false, {}));
    for (int i = 0; i < 500; ++i)
        ASSERT_EQ(disk.Content("to\\copy\\" + std::to_string(i)), "content " + std::to_string(i));
    for (int i = 0; i < 30; ++i) {
        const std::string inner = "to\\copy\\" + std::to_string(i * 10) + " inner\\";
        EXPECT_EQ(disk.Content(inner + "b"), "b" + std::to_string(i));
        EXPECT_EQ(disk.Content(inner + "c\\d"), "d" + std::to_string(i));
    }
}

// ---- objects that a search saw ----

namespace {
// Time stands until it is told to go on, so that what is known of a folder is believed until this
// process changes it.
class LinuxSeenAheadTest : public testing::Test {
  protected:
    void SetUp() override {
        disk.MakeFile("s\\sub\\a", "inside");
        disk.MakeFile("outside\\a", "secret");
        disk.MakeFolder("to");
        const auto to = OpenAt({AT_FDCWD, disk.Native("to").c_str()}, O_PATH | O_DIRECTORY);
        if (!to || !PartFile::CreateUnnamed(to->Get(), 0600)) {
            GTEST_SKIP() << "this disk holds no files without a name";
        }
        disk.Files().ExpectChanges(true);
    }
    std::string At(std::string_view path) const { return disk.Root() + "\\" + std::string(path); }
    void Plan() {
        const std::string to = At("to");
        const std::vector<PlannedCopy> planned{{path_, to, location_}};
        disk.Files().CopySoon(planned);
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    Result<Look> LookAt() {
        return disk.Files().LookAtSeen({path_, {.location = location_}, Same::kName});
    }
    Result<void> Copy(const Look& look) {
        return disk.Files().CopyFileTo(look, {At("to\\a"), nullptr}, {});
    }
    void MoveAwayByOthers() { std::filesystem::rename(disk.Native("s\\sub"), disk.Native("away")); }

    std::int64_t now_ = 1;
    LinuxDisk disk{{.aheadAge = 0},
                   {.now = [this] { return now_; }, .tick = [this] { return now_; }}};
    const std::string path_ = At("s\\sub\\a");
    const std::uint32_t location_ = static_cast<std::uint32_t>(At("s").size());
};
} // namespace

TEST_F(LinuxSeenAheadTest, WhatWasCopiedAheadIsWhatIsLookedAt) {
    Plan();
    MoveAwayByOthers();
    const auto look = LookAt();
    ASSERT_TRUE(look);
    ASSERT_EQ(NumberOf(Copy(*look)), 0);
    EXPECT_EQ(disk.Content("to\\a"), "inside");
}

TEST_F(LinuxSeenAheadTest, ItsCopyIsNamedWithoutALookAtTheSource) {
    Plan();
    const CallCounts before = CallsOfThread();
    const auto look = LookAt();
    ASSERT_TRUE(look);
    EXPECT_EQ(look->facts.size, 6u);
    EXPECT_NE(look->facts.identity.inode, 0u);
    EXPECT_EQ(CallsOfThread().looks, before.looks);
    EXPECT_EQ(CallsOfThread().opens, before.opens);
    ASSERT_EQ(NumberOf(disk.Files().CreateFolder(At("made"))), 0); // its names are known
    const CallCounts looked = CallsOfThread();
    ASSERT_EQ(NumberOf(disk.Files().CopyFileTo(*look, {At("made\\a"), nullptr}, {})), 0);
    EXPECT_EQ(CallsOfThread().looks, looked.looks);
    EXPECT_EQ(CallsOfThread().opens, looked.opens);
    EXPECT_EQ(disk.Content("made\\a"), "inside");
}

TEST_F(LinuxSeenAheadTest, WhatIsNotWhatTheSearchSawGetsNoCopy) {
    disk.MakeFile("other", "");
    const auto other = disk.Files().Facts(At("other"));
    ASSERT_TRUE(other);
    Plan();
    const Sighting sighting{.identity = other->identity, .location = location_};
    EXPECT_EQ(NumberOf(disk.Files().LookAtSeen({path_, sighting, Same::kObject})),
              kChangedSinceSearch);
}

TEST_F(LinuxSeenAheadTest, AfterAWhileTheSourceIsLookedAtAgain) {
    Plan();
    const auto look = LookAt();
    ASSERT_TRUE(look);
    disk.MakeFile("s\\new", "another");
    std::filesystem::rename(disk.Native("s\\new"), disk.Native("s\\sub\\a"));
    now_ += 6'000'000;
    EXPECT_EQ(NumberOf(Copy(*look)), kChangedSinceSearch);
    EXPECT_EQ(disk.Names("to"), List{});
    const auto again = LookAt();
    ASSERT_TRUE(again);
    ASSERT_EQ(NumberOf(Copy(*again)), 0);
    EXPECT_EQ(disk.Content("to\\a"), "another");
}

TEST_F(LinuxSeenAheadTest, WhatThisProcessChangedIsLookedAtAgain) {
    Plan();
    ASSERT_EQ(NumberOf(disk.Files().SetAttributes(path_, kReadOnly)), 0);
    const auto look = LookAt();
    ASSERT_TRUE(look);
    EXPECT_NE(look->facts.attributes & kReadOnly, 0u);
    ASSERT_EQ(NumberOf(Copy(*look)), 0);
    EXPECT_NE(disk.Files().Facts(At("to\\a"))->attributes & kReadOnly, 0u);
}

TEST_F(LinuxSeenAheadTest, NothingElseIsDoneThroughALinkByALookThatReachedNoFolder) {
    disk.MakeFolder("elsewhere");
    Plan();
    const auto look = LookAt();
    ASSERT_TRUE(look);
    MoveAwayByOthers();
    disk.MakeLink("s\\sub", "outside");
    auto& files = disk.Files();
    EXPECT_EQ(NumberOf(files.SetAttributesOf(*look, kReadOnly)), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files.MoveFileTo(*look, {At("elsewhere\\a"), nullptr}, {})),
              kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files.PrepareFileOf(*look, At("elsewhere\\a"), {})), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files.DeleteFileOf(*look, true)), kChangedSinceSearch);
    EXPECT_EQ(disk.Content("outside\\a"), "secret");
    EXPECT_EQ(disk.Names("elsewhere"), List{});
}

TEST_F(LinuxSeenAheadTest, WhereNoCopyLiesReadyNoneIsMadeThroughALink) {
    Plan();
    const auto look = LookAt();
    ASSERT_TRUE(look);
    disk.Files().CopySoon({});
    MoveAwayByOthers();
    disk.MakeLink("s\\sub", "outside");
    EXPECT_EQ(NumberOf(Copy(*look)), kChangedSinceSearch);
    EXPECT_EQ(disk.Names("to"), List{});
}

TEST_F(LinuxSeenAheadTest, ANameThatIsTakenStaysWithWhoHasIt) {
    Plan();
    const auto look = LookAt();
    ASSERT_TRUE(look);
    disk.MakeFile("to\\a", "rival");
    EXPECT_EQ(NumberOf(Copy(*look)), kAlreadyExists);
    EXPECT_EQ(disk.Content("to\\a"), "rival");
}

TEST_F(LinuxSeenAheadTest, ACopyWaitsForItsFolderToBeMade) {
    ASSERT_FALSE(disk.Files().Facts(At("to\\none")));
    Plan();
    const auto look = LookAt();
    ASSERT_TRUE(look);
    const std::string place = At("to\\new\\a");
    EXPECT_EQ(NumberOf(disk.Files().CopyFileTo(*look, {place, nullptr}, {})), kPathNotFound);
    ASSERT_EQ(NumberOf(disk.Files().CreateFolder(At("to\\new"))), 0);
    const CallCounts before = CallsOfThread();
    ASSERT_EQ(NumberOf(disk.Files().CopyFileTo(*look, {place, nullptr}, {})), 0);
    EXPECT_EQ(CallsOfThread().looks, before.looks);
    EXPECT_EQ(CallsOfThread().opens, before.opens);
    EXPECT_EQ(disk.Content("to\\new\\a"), "inside");
}

TEST_F(LinuxSeenAheadTest, WhatThisProcessMovedIsNoLongerThere) {
    Plan();
    ASSERT_TRUE(disk.Files().MoveFolder(At("s\\sub"), At("away")));
    EXPECT_EQ(NumberOf(LookAt()), kPathNotFound);
}

TEST_F(LinuxSeenAheadTest, NoLinkIsFollowedAheadEither) {
    MoveAwayByOthers();
    disk.MakeLink("s\\sub", "outside");
    Plan();
    EXPECT_EQ(NumberOf(LookAt()), kChangedSinceSearch);
}

TEST_F(LinuxSeenAheadTest, NoFolderIsHeldOnceTheRunIsOver) {
    Plan();
    disk.Files().ExpectChanges(false);
    MoveAwayByOthers();
    EXPECT_EQ(NumberOf(LookAt()), kPathNotFound);
}

TEST_F(LinuxCopyAheadTest, AFileThatChangedJustNowIsNotReadAhead) {
    LinuxDisk careful;
    careful.MakeFile("from\\0", "1");
    careful.MakeFile("from\\1", "1");
    careful.MakeFolder("to");
    const auto folder = OpenAt({AT_FDCWD, careful.Native("to").c_str()}, O_PATH | O_DIRECTORY);
    ASSERT_TRUE(folder);
    CopyAhead ahead{CopyRoads{}};
    const auto target = std::make_shared<UniqueFd>(::dup(folder->Get()));
    ahead.Replace({{"0", nullptr, careful.Native("from\\0"), target},
                   {"1", nullptr, careful.Native("from\\1"), target}});
    Wait();
    const auto st = StatOfPath(careful.Native("from\\1"));
    ASSERT_TRUE(st);
    EXPECT_FALSE(ahead.Take("1", *st));
}

} // namespace tarvix::platform
