#include "platform/linux/move_queue.h"

#include "platform/start_thread.h"

#include <chrono>

namespace tarvix::platform {

namespace {
constexpr std::chrono::milliseconds kLongestPause{5};
} // namespace

MoveQueue::~MoveQueue() {
    if (!thread_.joinable()) return;
    isHalted_ = true;
    {
        const std::scoped_lock lock(mutex_);
        isEnding_ = true;
    }
    more_.notify_one();
    thread_.join();
}

bool MoveQueue::Add(ReadyMove move) {
    if (isHalted_ || added_ - told_ == kSlots) return false;
    if (!StartThread(thread_, [this] { Work(); })) return false;
    At(added_) = std::move(move);
    ++added_;
    std::unique_lock lock(mutex_);
    const bool isResting = isResting_;
    lock.unlock();
    if (isResting) more_.notify_one();
    return true;
}

void MoveQueue::Wait(MoveWait wait) {
    if (wait == MoveWait::kStop) isHalted_ = true;
    if (wait == MoveWait::kNone || !thread_.joinable()) return;
    std::unique_lock lock(mutex_);
    const auto isAtRest = [this] { return isResting_ && (isHalted_ || made_ == added_); };
    if (wait != MoveWait::kSome) return progress_.wait(lock, isAtRest);
    awaited_ = told_ + (added_ - told_ + 1) / 2;
    progress_.wait_for(lock, kLongestPause, [&] { return made_ >= awaited_ || isAtRest(); });
}

MoveQueue::Told MoveQueue::Take(MoveWait wait) {
    Wait(wait);
    Told told;
    const bool hasHalted = HasHalted();
    const std::size_t made = made_;
    told.made = made - told_;
    for (; told_ != made; ++told_) {
        const ReadyMove settled = std::exchange(At(told_), {});
        if (!told.unwritten) told.unwritten = settled.unwritten;
    }
    if (!hasHalted) return told;
    told.end = std::exchange(end_, MoveEnd::kGivenUp);
    for (; told_ != added_; ++told_)
        told.left.push_back(std::exchange(At(told_), {}));
    made_ = told_;
    isHalted_ = false;
    return told;
}

bool MoveQueue::HasHalted() {
    if (!isHalted_) return false;
    const std::scoped_lock lock(mutex_);
    return isResting_;
}

void MoveQueue::Work() {
    std::unique_lock lock(mutex_);
    while (!isEnding_) {
        if (isHalted_ || made_ == added_) {
            isResting_ = true;
            progress_.notify_one();
            more_.wait(lock, [this] { return isEnding_ || (!isHalted_ && made_ != added_); });
            continue;
        }
        isResting_ = false;
        lock.unlock();
        MakeAdded();
        lock.lock();
    }
}

void MoveQueue::MakeAdded() {
    while (!isHalted_ && made_ != added_) {
        const MoveEnd end = make_(At(made_));
        if (end != MoveEnd::kMade) {
            end_ = end;
            isHalted_ = true;
        } else if (++made_ == awaited_) {
            // Not to be missed by who is about to wait, who then shall not wait for the lock.
            { const std::scoped_lock lock(mutex_); }
            progress_.notify_one();
        }
    }
}

} // namespace tarvix::platform
