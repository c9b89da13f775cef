// Moves that a second thread makes one after the other.

#include "platform/linux/move_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace tarvix::platform {
namespace {

// Moves "0", "1" ... by their note's text.
class MoveQueueTest : public testing::Test {
  protected:
    bool Add(int number) {
        ReadyMove move;
        move.note.text = std::to_string(number);
        return queue_.Add(std::move(move));
    }
    void AddAll(int begin, int end) {
        for (int i = begin; i < end; ++i)
            ASSERT_TRUE(Add(i)) << i;
    }
    // The second thread stays in the first of them.
    void AddAndHold(int begin, int end) {
        isHeld_ = true;
        AddAll(begin, end);
        while (!isInHand_)
            std::this_thread::yield();
    }
    static std::vector<std::string> TextsOf(const MoveQueue::Told& told) {
        std::vector<std::string> texts;
        for (const ReadyMove& move : told.left)
            texts.push_back(move.note.text);
        return texts;
    }
    std::vector<std::string> Numbers(int begin, int end) {
        std::vector<std::string> numbers;
        for (int i = begin; i < end; ++i)
            numbers.push_back(std::to_string(i));
        return numbers;
    }

    std::atomic<bool> isHeld_ = false;
    std::atomic<bool> isInHand_ = false;
    std::string refused_;
    MoveEnd end_ = MoveEnd::kRefused;
    std::vector<std::string> made_; // the second thread's until the queue rests
    MoveQueue queue_{[this](ReadyMove& move) {
        isInHand_ = true;
        while (isHeld_)
            std::this_thread::yield();
        if (move.note.text == refused_) return end_;
        if (move.note.text == "unwritten") move.unwritten = PlatformError{kDiskFull, "full"};
        made_.push_back(move.note.text);
        return MoveEnd::kMade;
    }};
};

TEST_F(MoveQueueTest, MovesAreMadeInTheirOrder) {
    AddAll(0, 100);
    std::size_t made = 0;
    while (made < 100) {
        const auto told = queue_.Take(MoveWait::kSome);
        EXPECT_TRUE(told.left.empty());
        made += told.made;
    }
    EXPECT_EQ(queue_.Take(MoveWait::kAll).made, 0u);
    EXPECT_TRUE(queue_.IsEmpty());
    EXPECT_EQ(made_, Numbers(0, 100));
}

TEST_F(MoveQueueTest, BehindOneThatIsRefusedNoneIsBegun) {
    refused_ = "3";
    AddAndHold(0, 10);
    isHeld_ = false;
    const auto told = queue_.Take(MoveWait::kAll);
    EXPECT_EQ(told.made, 3u);
    EXPECT_EQ(told.end, MoveEnd::kRefused);
    EXPECT_EQ(TextsOf(told), Numbers(3, 10));
    EXPECT_EQ(made_, Numbers(0, 3));
}

TEST_F(MoveQueueTest, BehindOneThatIsRefusedNoneIsTakenOnUntilThatIsTold) {
    refused_ = "0";
    AddAll(0, 1);
    while (Add(1))
        std::this_thread::yield();
    EXPECT_FALSE(Add(1));
    EXPECT_GE(queue_.Take(MoveWait::kAll).left.size(), 1u);
    refused_.clear();
    EXPECT_TRUE(Add(2));
    EXPECT_EQ(queue_.Take(MoveWait::kAll).made, 1u);
    EXPECT_EQ(made_, Numbers(2, 3));
}

TEST_F(MoveQueueTest, AStopWaitsForTheOneInHandAlone) {
    AddAndHold(0, 5);
    std::thread release([this] { isHeld_ = false; });
    const auto told = queue_.Take(MoveWait::kStop);
    release.join();
    EXPECT_GE(told.made, 1u);
    EXPECT_EQ(told.made + told.left.size(), 5u);
    EXPECT_EQ(made_.size(), told.made);
    if (!told.left.empty()) {
        EXPECT_EQ(told.end, MoveEnd::kGivenUp);
    }
    AddAll(5, 7);
    EXPECT_EQ(queue_.Take(MoveWait::kAll).made, 2u);
}

TEST_F(MoveQueueTest, AStopOfNothingStopsNothingLater) {
    EXPECT_TRUE(queue_.Take(MoveWait::kStop).left.empty());
    AddAll(0, 2);
    EXPECT_EQ(queue_.Take(MoveWait::kAll).made, 2u);
    EXPECT_TRUE(queue_.Take(MoveWait::kStop).left.empty());
    AddAll(2, 4);
    EXPECT_EQ(queue_.Take(MoveWait::kAll).made, 2u);
}

TEST_F(MoveQueueTest, ThereIsRoomForSoManyUntilTheyAreTold) {
    AddAndHold(0, 128);
    EXPECT_FALSE(Add(128));
    EXPECT_EQ(queue_.Take(MoveWait::kNone).made, 0u);
    isHeld_ = false;
    EXPECT_EQ(queue_.Take(MoveWait::kAll).made, 128u);
    EXPECT_TRUE(Add(128));
}

TEST_F(MoveQueueTest, ANoteThatIsNotWrittenEndsNothing) {
    AddAll(0, 1);
    ReadyMove move;
    move.note.text = "unwritten";
    ASSERT_TRUE(queue_.Add(std::move(move)));
    AddAll(2, 3);
    const auto told = queue_.Take(MoveWait::kAll);
    EXPECT_EQ(told.made, 3u);
    ASSERT_TRUE(told.unwritten);
    EXPECT_EQ(told.unwritten->number, kDiskFull);
}

TEST_F(MoveQueueTest, AnExchangedObjectIsTold) {
    refused_ = "1";
    end_ = MoveEnd::kExchanged;
    AddAndHold(0, 3);
    isHeld_ = false;
    const auto told = queue_.Take(MoveWait::kAll);
    EXPECT_EQ(told.end, MoveEnd::kExchanged);
    EXPECT_EQ(TextsOf(told), Numbers(1, 3));
}

// Which of them are made is for the second thread to say; each is told once.
TEST_F(MoveQueueTest, ManyRoundsTellOfEach) {
    int next = 0;
    std::size_t told = 0;
    for (int round = 0; round < 2000; ++round) {
        const int end = next + round % 7;
        while (next < end && Add(next))
            ++next;
        const auto wait = static_cast<MoveWait>(round % 4);
        const auto taken = queue_.Take(wait);
        told += taken.made + taken.left.size();
        if (wait == MoveWait::kAll || wait == MoveWait::kStop) {
            ASSERT_TRUE(queue_.IsEmpty()) << round;
        }
    }
    const auto last = queue_.Take(MoveWait::kAll);
    EXPECT_EQ(told + last.made, static_cast<std::size_t>(next));
}

TEST(MoveQueue, WhatIsNotBegunIsGivenUpAtItsEnd) {
    std::atomic<int> made = 0;
    std::atomic<bool> isHeld = true;
    std::thread release;
    {
        MoveQueue queue([&](ReadyMove&) {
            ++made;
            while (isHeld)
                std::this_thread::yield();
            return MoveEnd::kMade;
        });
        for (int i = 0; i < 10; ++i)
            ASSERT_TRUE(queue.Add({}));
        while (made == 0)
            std::this_thread::yield();
        release = std::thread([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            isHeld = false;
        });
    }
    release.join();
    EXPECT_EQ(made, 1);
}

} // namespace
} // namespace tarvix::platform
