// Looks that are taken on a second thread before they are asked for.

#include "platform/linux/look_ahead.h"
#include "tests/platform/linux_disk.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

namespace tarvix::platform {
namespace {

namespace fs = std::filesystem;

SeenObject Numbered(const std::string& path, std::uint64_t inode) {
    return {.path = path, .sighting = {.identity = {.inode = inode}}, .same = Same::kObject};
}

// Objects "0", "1" ... with the numbers 1, 2 ...; a look has the number as its size.
class LookAheadTest : public testing::Test {
  protected:
    void Add(std::size_t begin, std::size_t end) {
        std::vector<SeenObject> objects;
        for (std::size_t i = begin; i < end; ++i)
            objects.push_back(Object(i));
        ahead_.Add(objects);
    }
    SeenObject Object(std::size_t i) const { return Numbered(paths_[i], i + 1); }
    // The second thread stays in its look at the first.
    void AddAndHold(std::size_t begin, std::size_t end) {
        isHeld_ = true;
        Add(begin, end);
        while (looks_ == 0)
            std::this_thread::yield();
    }
    // Waits until so many objects were looked at; what was done is to be taken at once.
    void WaitFor(std::size_t looks) {
        while (looks_ < looks)
            std::this_thread::yield();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    std::optional<std::uint64_t> Take(std::size_t i) {
        const auto look = ahead_.Take(Object(i));
        return look ? std::optional(look->facts.size) : std::nullopt;
    }

    const std::vector<std::string> paths_ = [] {
        std::vector<std::string> paths;
        for (int i = 0; i < 1000; ++i)
            paths.push_back(std::to_string(i));
        return paths;
    }();
    std::atomic<std::size_t> looks_ = 0;
    std::atomic<bool> isHeld_ = false;
    LookAhead ahead_{[this](const SeenObject& object) -> std::optional<AheadLook> {
        ++looks_;
        while (isHeld_)
            std::this_thread::yield();
        if (object.path == "7") return std::nullopt;
        return AheadLook{.known = nullptr, .facts = {.size = object.sighting.identity.inode}};
    }};
};

TEST_F(LookAheadTest, GivesTheLooksInTheirOrder) {
    Add(0, 5);
    WaitFor(5);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(Take(i), i + 1);
    EXPECT_EQ(Take(5), std::nullopt);
}

TEST_F(LookAheadTest, EachLookIsGivenOnce) {
    Add(0, 3);
    WaitFor(3);
    EXPECT_EQ(Take(1), 2u);
    EXPECT_EQ(Take(1), std::nullopt);
    EXPECT_EQ(Take(0), std::nullopt) << "it should have come before";
    EXPECT_EQ(Take(2), 3u);
}

TEST_F(LookAheadTest, WhatIsNoMoreAsItWasSeenHasNone) {
    Add(6, 9);
    WaitFor(3);
    EXPECT_EQ(Take(7), std::nullopt);
    EXPECT_EQ(Take(8), 9u);
}

TEST_F(LookAheadTest, ALookInHandIsNotWaitedFor) {
    AddAndHold(0, 3);
    EXPECT_EQ(Take(0), std::nullopt);
    isHeld_ = false;
    ahead_.Drop();
}

TEST_F(LookAheadTest, WhatWasTakenOffThePlanIsNotLookedAt) {
    AddAndHold(0, 6);
    EXPECT_EQ(Take(4), std::nullopt);
    isHeld_ = false;
    WaitFor(2);
    EXPECT_EQ(Take(5), 6u);
    EXPECT_EQ(looks_, 2u);
}

TEST_F(LookAheadTest, AnotherWishIsNotServed) {
    Add(0, 2);
    WaitFor(2);
    SeenObject other = Object(0);
    other.same = Same::kName;
    EXPECT_FALSE(ahead_.Take(other));
    other = Object(1);
    other.sighting.location = 1;
    EXPECT_FALSE(ahead_.Take(other));
}

TEST_F(LookAheadTest, WhatWasChangedIsForgotten) {
    Add(0, 4);
    WaitFor(4);
    ahead_.Forget(2);
    EXPECT_EQ(Take(0), 1u);
    EXPECT_EQ(Take(1), std::nullopt);
    EXPECT_EQ(Take(2), 3u);
    ahead_.ForgetAll();
    EXPECT_EQ(Take(3), std::nullopt);
    Add(4, 5);
    WaitFor(5);
    EXPECT_EQ(Take(4), 5u) << "looked at since";
}

TEST_F(LookAheadTest, WhatHasNoNumberIsLeftOut) {
    const std::string path = "x";
    ahead_.Add(std::vector{Numbered(path, 0)});
    ahead_.Drop();
    EXPECT_EQ(looks_, 0u);
}

TEST_F(LookAheadTest, PlansThatFollowEachOtherAreServedRoundAndRound) {
    std::size_t served = 0;
    for (std::size_t i = 0; i < 1000; ++i) {
        if (i % 50 == 0) Add(i, i + 50);
        if (i % 50 == 0) WaitFor(i + 50);
        const auto size = Take(i);
        if (size) ++served;
        ASSERT_EQ(size.value_or(i + 1), i + 1);
    }
    EXPECT_EQ(served, 999u) << "all but the one that was changed";
}

TEST_F(LookAheadTest, WhatDoesNotFitIsLeftOut) {
    Add(0, 1000);
    WaitFor(256);
    EXPECT_EQ(Take(999), std::nullopt);
    EXPECT_EQ(Take(100), 101u);
}

TEST_F(LookAheadTest, NothingIsKeptOnceAllIsDropped) {
    const auto known = std::make_shared<Known>();
    LookAhead ahead{[&known](const SeenObject&) {
        return std::optional(AheadLook{.known = known, .facts = {}});
    }};
    ahead.Add(std::vector{Object(0), Object(1), Object(2)});
    ahead.Drop();
    EXPECT_EQ(known.use_count(), 1);
}

// ---- on a disk ----

class LinuxLookAhead : public testing::Test {
  protected:
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) { return disk_.Root() + "\\" + std::string(path); }
    fs::path Native(std::string_view path) { return fs::path(disk_.Native(path)); }
    // As a search of the folder "s" sees it.
    SeenObject See(const std::string& path) {
        const auto look = files().LookAt(path);
        EXPECT_TRUE(look);
        return {path,
                {.identity = look->facts.identity,
                 .size = look->facts.size,
                 .attributes = look->facts.attributes,
                 .location = static_cast<std::uint32_t>(At("s").size())},
                Same::kObject};
    }
    void Plan(const std::vector<SeenObject>& objects) {
        files().LookSoon(objects);
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }

    std::atomic<std::int64_t> now_ = 1'000'000'000;
    LinuxDisk disk_{
        {}, {.now = [this] { return now_.load(); }, .tick = [this] { return now_.load(); }}};
};

TEST_F(LinuxLookAhead, AFileIsMovedByALookThatWasTakenAhead) {
    disk_.MakeFile("s\\a", "content");
    const std::string path = At("s\\a");
    const SeenObject seen = See(path);
    Plan({seen});
    const auto look = files().LookAtSeen(seen);
    ASSERT_TRUE(look);
    EXPECT_EQ(look->facts.size, 7u);
    EXPECT_EQ(look->location, seen.sighting.location);
    ASSERT_TRUE(files().MoveFileTo(*look, {At("s\\b"), nullptr}, {}));
    EXPECT_EQ(disk_.Content("s\\b"), "content");
    EXPECT_FALSE(files().LookAtSeen(seen));
    files().LookSoon({});
}

TEST_F(LinuxLookAhead, TheOtherNameOfAChangedFileIsLookedAtAgain) {
    disk_.MakeFile("s\\a", "content");
    fs::create_hard_link(Native("s\\a"), Native("s\\b"));
    const std::string a = At("s\\a");
    const std::string b = At("s\\b");
    const SeenObject seenA = See(a);
    const SeenObject seenB = See(b);
    Plan({seenA, seenB});
    const auto look = files().LookAtSeen(seenA);
    ASSERT_TRUE(look);
    ASSERT_TRUE(files().MoveFileTo(*look, {At("s\\c"), nullptr}, {}));
    const auto other = files().LookAtSeen(seenB);
    ASSERT_TRUE(other);
    EXPECT_GT(other->facts.identity.changed, look->facts.identity.changed);
    files().LookSoon({});
}

TEST_F(LinuxLookAhead, AnObjectThatIsListedTwiceIsGoneTheSecondTime) {
    disk_.MakeFile("s\\a", "content");
    const std::string path = At("s\\a");
    const SeenObject seen = See(path);
    Plan({seen, seen});
    const auto look = files().LookAtSeen(seen);
    ASSERT_TRUE(look);
    ASSERT_TRUE(files().MoveFileTo(*look, {At("s\\b"), nullptr}, {}));
    EXPECT_EQ(NumberOf(files().LookAtSeen(seen)), kFileNotFound);
    files().LookSoon({});
}

TEST_F(LinuxLookAhead, WhatLiesInAMovedFolderIsNotFoundAtItsOldPath) {
    disk_.MakeFile("s\\sub\\a", "content");
    disk_.MakeFile("s\\b", "content");
    const std::string a = At("s\\sub\\a");
    const std::string b = At("s\\b");
    const SeenObject seenA = See(a);
    Plan({seenA, See(b)});
    ASSERT_TRUE(files().MoveFolder(At("s\\sub"), At("s\\other")));
    EXPECT_FALSE(files().LookAtSeen(seenA));
    files().LookSoon({});
}

// Others put another file in the place of one that was looked at ahead.
class LinuxExchangedAhead : public LinuxLookAhead {
  protected:
    void SetUp() override {
        disk_.MakeFile("s\\a", "content");
        disk_.MakeFile("other", "another");
        seen_ = See(path_);
        Plan({seen_});
        fs::rename(Native("other"), Native("s\\a"));
    }
    void TearDown() override { files().LookSoon({}); }

    const std::string path_ = At("s\\a");
    SeenObject seen_;
};

TEST_F(LinuxExchangedAhead, ItIsSeenOnceTheLookIsNoMoreBelieved) {
    now_ += 6'000'000;
    EXPECT_EQ(NumberOf(files().LookAtSeen(seen_)), kChangedSinceSearch);
}

TEST_F(LinuxExchangedAhead, ItGoesBackFromAMove) {
    const auto look = files().LookAtSeen(seen_);
    ASSERT_TRUE(look) << "it is still believed";
    EXPECT_EQ(NumberOf(files().MoveFileTo(*look, {At("s\\b"), nullptr}, {})), kChangedSinceSearch);
    EXPECT_EQ(disk_.Content("s\\a"), "another");
    EXPECT_EQ(disk_.Content("s\\b"), std::nullopt);
}

TEST_F(LinuxExchangedAhead, WhatWasTakenAwayIsTheMissingOne) {
    const auto look = files().LookAtSeen(seen_);
    ASSERT_TRUE(look) << "it is still believed";
    fs::remove(Native("s\\a"));
    const auto moved = files().MoveFileTo(*look, {At("s\\b"), nullptr}, {});
    EXPECT_EQ(NumberOf(moved), kFileNotFound);
    EXPECT_EQ(moved.error().path, path_);
}

} // namespace
} // namespace tarvix::platform
