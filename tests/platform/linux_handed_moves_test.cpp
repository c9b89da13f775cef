// Moves that are made while the caller goes on, where others change the disk in the moments that
// count.

#include "platform/linux/linux_file_system.h"
#include "tests/platform/linux_disk.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <mutex>
#include <thread>
#include <unistd.h>

namespace tarvix::platform {
namespace {

namespace fs = std::filesystem;

// Keeps what is written; holds whoever writes as long as it is held.
class HeldStream : public TextStream {
  public:
    bool AtEndOfStream() const override { return true; }
    Result<std::string> ReadLine() override { return Failure(kBadFileName, "not for reading"); }
    Result<void> Write(std::string_view text) override {
        isInHand = true;
        while (isHeld)
            std::this_thread::yield();
        if (isFull) return Failure(kDiskFull, "full");
        const std::scoped_lock lock(mutex_);
        text_ += text;
        return {};
    }
    Result<void> Flush() override { return {}; }
    Result<void> Close() override { return {}; }
    std::string Text() {
        const std::scoped_lock lock(mutex_);
        return text_;
    }

    std::atomic<bool> isHeld = false;
    std::atomic<bool> isInHand = false;
    std::atomic<bool> isFull = false;

  private:
    std::mutex mutex_;
    std::string text_;
};

class LinuxHandedMoves : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : {"a", "b", "c", "d"})
            disk_.MakeFile(std::string("s\\") + name, name);
        disk_.MakeFile("t\\there", "stood there");
        // The names in both are read, and then changed by us alone.
        for (const char* folder : {"s\\", "t\\"}) {
            disk_.MakeFile("first", "first");
            EXPECT_FALSE(files().Facts(At(folder) + "missing"));
            EXPECT_TRUE(files().MoveFile(At("first"), At(folder) + "first", {}));
        }
    }
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) { return disk_.Root() + "\\" + std::string(path); }
    fs::path Native(std::string_view path) { return fs::path(disk_.Native(path)); }
    static std::string TextOf(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::optional<FreePlace> Free(std::string_view to) { return files().KnownFree(At(to)); }
    // As an action hands it over, from what it sees now.
    bool Hand(std::string_view from, std::string_view to) {
        const std::string path = At(from);
        const auto now = files().LookAt(path);
        if (!now) return false;
        const auto look =
            files().LookAtSeen({path,
                                {.identity = now->facts.identity,
                                 .size = now->facts.size,
                                 .attributes = now->facts.attributes,
                                 .location = static_cast<std::uint32_t>(At("s").size())},
                                Same::kObject});
        const auto place = Free(to);
        return look && place && files().HandMove(*look, *place, {stream_, std::string(from) + ";"});
    }
    // So that those behind it can be met by what others do.
    void HandAndHold(std::string_view from, std::string_view to) {
        stream_->isHeld = true;
        ASSERT_TRUE(Hand(from, to));
        while (!stream_->isInHand)
            std::this_thread::yield();
    }
    // The first of them is in hand.
    void HandThree() {
        HandAndHold("s\\a", "t\\a");
        ASSERT_TRUE(Hand("s\\b", "t\\b"));
        ASSERT_TRUE(Hand("s\\c", "t\\c"));
    }
    HandedMoves Release(MoveWait wait = MoveWait::kAll) {
        stream_->isHeld = false;
        return files().TakeHanded(wait);
    }
    void ExpectStays(std::string_view path) {
        EXPECT_EQ(TextOf(Native(path)), path.substr(path.size() - 1)) << path;
    }

    std::atomic<std::int64_t> now_ = 0;
    LinuxDisk disk_{{}, {[this] { return now_.load(); }, [this] { return now_.load(); }}};
    ManyChanges many_{files()};
    std::shared_ptr<HeldStream> stream_ = std::make_shared<HeldStream>();
};

TEST_F(LinuxHandedMoves, FilesAreMovedAndNotedInTheirOrder) {
    ASSERT_TRUE(Hand("s\\a", "t\\a"));
    ASSERT_TRUE(Hand("s\\b", "t\\b2"));
    ASSERT_TRUE(Hand("s\\c", "s\\c2")) << "in its own folder";
    const auto told = files().TakeHanded(MoveWait::kAll);
    EXPECT_EQ(told.made, 3u);
    EXPECT_EQ(told.left, 0u);
    EXPECT_FALSE(told.unwritten);
    EXPECT_EQ(stream_->Text(), "s\\a;s\\b;s\\c;");
    EXPECT_EQ(TextOf(Native("t\\a")), "a");
    EXPECT_EQ(TextOf(Native("t\\b2")), "b");
    EXPECT_EQ(TextOf(Native("s\\c2")), "c");
    EXPECT_FALSE(fs::exists(Native("s\\a")));
    EXPECT_FALSE(fs::exists(Native("s\\c")));
}

TEST_F(LinuxHandedMoves, ANameCountsAsTakenOnceItIsHandedOver) {
    HandAndHold("s\\a", "t\\a");
    ASSERT_TRUE(Hand("s\\b", "t\\Name"));
    EXPECT_FALSE(Free("t\\name")) << "in any case";
    EXPECT_FALSE(Hand("s\\c", "t\\NAME"));
    EXPECT_EQ(Release().made, 2u);
    EXPECT_FALSE(Free("t\\name"));
    EXPECT_TRUE(Free("t\\other"));
}

TEST_F(LinuxHandedMoves, ANameThatOthersTookStaysTheirs) {
    HandThree();
    disk_.MakeFile("t\\b", "theirs");
    const auto told = Release();
    EXPECT_EQ(told.made, 1u);
    EXPECT_EQ(told.left, 2u);
    EXPECT_FALSE(told.astray);
    EXPECT_EQ(TextOf(Native("t\\b")), "theirs");
    ExpectStays("s\\b");
    ExpectStays("s\\c");
    EXPECT_FALSE(fs::exists(Native("t\\c")));
    EXPECT_EQ(stream_->Text(), "s\\a;");
    // And counts as theirs.
    EXPECT_FALSE(Free("t\\b"));
    EXPECT_EQ(NumberOf(files().MoveFile(At("s\\b"), At("t\\b"), {})), kAlreadyExists);
    EXPECT_TRUE(files().MoveFile(At("s\\c"), At("t\\c"), {}));
}

TEST_F(LinuxHandedMoves, WhatCameToTheNameOfTheSourceGoesBack) {
    HandThree();
    fs::rename(Native("s\\b"), Native("away"));
    disk_.MakeFile("s\\b", "theirs");
    const auto told = Release();
    EXPECT_EQ(told.made, 1u);
    EXPECT_EQ(told.left, 2u);
    EXPECT_FALSE(told.astray);
    EXPECT_EQ(TextOf(Native("s\\b")), "theirs");
    EXPECT_EQ(TextOf(Native("away")), "b");
    EXPECT_FALSE(fs::exists(Native("t\\b")));
    ExpectStays("s\\c");
    EXPECT_EQ(stream_->Text(), "s\\a;");
}

TEST_F(LinuxHandedMoves, WhatCantGoBackIsTold) {
    HandThree();
    fs::rename(Native("s\\b"), Native("away"));
    disk_.MakeFile("s\\b", "theirs");
    stream_->isHeld = false;
    while (!fs::exists(Native("t\\b")))
        std::this_thread::yield();
    disk_.MakeFile("s\\b", "third");
    const auto told = files().TakeHanded(MoveWait::kAll);
    EXPECT_EQ(told.made, 1u);
    EXPECT_EQ(told.left, 2u);
    ASSERT_TRUE(told.astray);
    EXPECT_EQ(told.astray->number, kChangedSinceSearch);
    EXPECT_NE(told.astray->description.find(" was exchanged for another object"),
              std::string::npos);
    EXPECT_EQ(TextOf(Native("t\\b")), "theirs");
    EXPECT_EQ(TextOf(Native("s\\b")), "third");
    EXPECT_EQ(TextOf(Native("away")), "b");
    ExpectStays("s\\c");
}

TEST_F(LinuxHandedMoves, AFolderThatCameToTheNameOfTheSourceGoesBack) {
    HandAndHold("s\\a", "t\\a");
    ASSERT_TRUE(Hand("s\\b", "t\\b"));
    fs::remove(Native("s\\b"));
    disk_.MakeFile("s\\b\\in it", "theirs");
    EXPECT_EQ(Release().left, 1u);
    EXPECT_EQ(TextOf(Native("s\\b\\in it")), "theirs");
    EXPECT_FALSE(fs::exists(Native("t\\b")));
}

TEST_F(LinuxHandedMoves, AStopLeavesWhatIsNotBegun) {
    HandAndHold("s\\a", "t\\a");
    ASSERT_TRUE(Hand("s\\b", "t\\b"));
    ASSERT_TRUE(Hand("s\\c", "s\\c2"));
    std::thread release([this] {
        ::usleep(20'000);
        stream_->isHeld = false;
    });
    const auto told = files().TakeHanded(MoveWait::kStop);
    release.join();
    EXPECT_EQ(told.made, 1u);
    EXPECT_EQ(told.left, 2u);
    ExpectStays("s\\b");
    ExpectStays("s\\c");
    EXPECT_TRUE(Free("t\\b")) << "as before it was handed over";
    EXPECT_TRUE(Hand("s\\b", "t\\b"));
    EXPECT_EQ(files().TakeHanded(MoveWait::kAll).made, 1u);
}

TEST_F(LinuxHandedMoves, WhatWaitedTooLongIsLookedAtAnew) {
    HandAndHold("s\\a", "t\\a");
    ASSERT_TRUE(Hand("s\\b", "t\\b"));
    now_ += FolderStore::kBelieved + 1;
    const auto told = Release();
    EXPECT_EQ(told.made, 1u);
    EXPECT_EQ(told.left, 1u);
    ExpectStays("s\\b");
    EXPECT_TRUE(Hand("s\\b", "t\\b"));
    EXPECT_EQ(files().TakeHanded(MoveWait::kAll).made, 1u);
}

TEST_F(LinuxHandedMoves, ANoteThatCantBeWrittenIsToldAndEndsNothing) {
    stream_->isFull = true;
    ASSERT_TRUE(Hand("s\\a", "t\\a"));
    ASSERT_TRUE(Hand("s\\b", "t\\b"));
    const auto told = files().TakeHanded(MoveWait::kAll);
    EXPECT_EQ(told.made, 2u);
    ASSERT_TRUE(told.unwritten);
    EXPECT_EQ(told.unwritten->number, kDiskFull);
}

TEST_F(LinuxHandedMoves, WhatIsMoreThanARenameIsNotTakenOn) {
    disk_.MakeLink("s\\link", "a");
    EXPECT_FALSE(Hand("s\\link", "t\\link")) << "it may lead elsewhere";
    EXPECT_FALSE(Hand("s\\a", "t\\there"));
    EXPECT_FALSE(Hand("s\\a", "s\\A")) << "its own name in another case";
    EXPECT_FALSE(Hand("s\\a", "nowhere\\a"));
    const auto look = files().LookAt(At("s\\a"));
    const auto place = Free("t\\a");
    ASSERT_TRUE(look && place);
    EXPECT_FALSE(files().HandMove(*look, *place, {})) << "not seen by a search";
    EXPECT_TRUE(Hand("s\\a", "t\\a"));
    EXPECT_EQ(files().TakeHanded(MoveWait::kAll).made, 1u);
}

TEST_F(LinuxHandedMoves, AnotherChangeMakesALookOld) {
    const std::string path = At("s\\a");
    const auto now = files().LookAt(path);
    const auto look = files().LookAtSeen(
        {path,
         {.identity = now->facts.identity, .location = static_cast<std::uint32_t>(At("s").size())},
         Same::kObject});
    const auto place = Free("t\\a");
    ASSERT_TRUE(look && place);
    EXPECT_TRUE(files().MoveFile(At("s\\b"), At("t\\b"), {}));
    EXPECT_FALSE(files().HandMove(*look, *place, {}));
}

TEST_F(LinuxHandedMoves, OfTwoNamesOfOneFileEachMovesItsOwn) {
    fs::create_hard_link(Native("s\\a"), Native("s\\a2"));
    ASSERT_TRUE(Hand("s\\a", "t\\a"));
    ASSERT_TRUE(Hand("s\\a2", "t\\a2"));
    EXPECT_EQ(files().TakeHanded(MoveWait::kAll).made, 2u);
    EXPECT_EQ(TextOf(Native("t\\a")), "a");
    EXPECT_EQ(TextOf(Native("t\\a2")), "a");
}

TEST(LinuxHandedMovesClosed, WithoutASecondThreadNoneIsTakenOn) {
    LinuxDisk disk(CopyRoads{.ahead = false});
    disk.MakeFile("s\\a", "a");
    disk.MakeFile("t\\b", "b");
    const std::string path = disk.Root() + "\\s\\a";
    FileSystem& files = disk.Files();
    EXPECT_FALSE(files.Facts(disk.Root() + "\\t\\a"));
    const auto look = files.LookAtSeen(
        {path, {.location = static_cast<std::uint32_t>(disk.Root().size())}, Same::kName});
    ASSERT_TRUE(look);
    EXPECT_FALSE(files.HandMove(*look, {disk.Root() + "\\t\\a", nullptr}, {}));
    EXPECT_EQ(files.TakeHanded(MoveWait::kStop).left, 0u);
}

} // namespace
} // namespace tarvix::platform
