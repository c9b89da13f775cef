#include "platform/linux/look_ahead.h"

#include <algorithm>

namespace tarvix::platform {

LookAhead::~LookAhead() {
    if (!thread_.joinable()) return;
    Drop();
    {
        const std::scoped_lock lock(mutex_);
        isEnding_ = true;
    }
    more_.notify_one();
    thread_.join();
}

void LookAhead::Add(std::span<const SeenObject> objects) {
    const std::size_t end = std::min<std::size_t>(passed_, done_) + kSlots;
    std::size_t added = added_;
    for (const SeenObject& object : objects) {
        if (object.sighting.identity.inode == 0 || added == end) continue;
        Slot& slot = At(added++);
        slot.object = object;
        slot.look.reset();
        slot.isBelieved = true;
    }
    if (added_.exchange(added) != added) Wake();
}

void LookAhead::Wake() {
    if (!thread_.joinable()) thread_ = std::thread([this] { Work(); });
    const std::scoped_lock lock(mutex_);
    if (isResting_) more_.notify_one();
}

std::optional<AheadLook> LookAhead::Take(const SeenObject& object) {
    const std::size_t added = added_;
    std::size_t at = passed_;
    while (at < added && At(at).object.path != object.path)
        ++at;
    if (at == added) return std::nullopt;
    passed_ = at + 1;
    if (at >= done_) return std::nullopt;
    Slot& slot = At(at);
    auto look = std::exchange(slot.look, std::nullopt);
    const bool isAsked = slot.object.same == object.same &&
                         slot.object.sighting.location == object.sighting.location;
    if (!slot.isBelieved || at < believedFrom_ || !isAsked) return std::nullopt;
    return look;
}

void LookAhead::Forget(std::uint64_t inode) {
    const std::size_t added = added_;
    for (std::size_t at = passed_; at < added; ++at) {
        if (At(at).object.sighting.identity.inode == inode) At(at).isBelieved = false;
    }
}

void LookAhead::Drop() {
    const std::size_t begin = std::min<std::size_t>(passed_, done_);
    const std::size_t added = added_;
    passed_ = added;
    std::unique_lock lock(mutex_);
    resting_.wait(lock, [&] { return done_ == added; });
    for (std::size_t at = begin; at < added; ++at)
        At(at).look.reset();
}

void LookAhead::Work() {
    std::unique_lock lock(mutex_);
    while (!isEnding_) {
        if (done_ == added_) {
            isResting_ = true;
            resting_.notify_one();
            more_.wait(lock, [this] { return isEnding_ || done_ != added_; });
            isResting_ = false;
            continue;
        }
        lock.unlock();
        LookAtAdded();
        lock.lock();
    }
}

void LookAhead::LookAtAdded() {
    for (std::size_t at = done_; at < added_; ++at) {
        if (at >= passed_) At(at).look = look_(At(at).object);
        done_ = at + 1;
    }
}

} // namespace tarvix::platform
