#pragma once

#include "platform/file_system.h"
#include "platform/object_facts.h"
#include "platform/seen_object.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <thread>
#include <utility>

namespace tarvix::platform {

// An object as it was looked at before it was asked for.
struct AheadLook {
    std::shared_ptr<Known> known; // of the file system, with the time of the look
    ObjectFacts facts;
};

// Looks at objects on a second thread, a little before they are asked for. All calls come from one
// thread; none of them waits but Drop.
class LookAhead {
  public:
    // Looks at an object, on the second thread; nothing where it isn't what was seen.
    using Look = std::function<std::optional<AheadLook>(const SeenObject&)>;

    explicit LookAhead(Look look) : look_(std::move(look)) {}
    ~LookAhead();
    LookAhead(const LookAhead&) = delete;
    LookAhead& operator=(const LookAhead&) = delete;

    // Objects that come behind those of the last calls. Those for which there is no room are left
    // out, and those that have no number to be known by again once they were acted on. Their paths
    // must live until Drop.
    void Add(std::span<const SeenObject> objects);
    // The look at an object, if it is there already and believed. Objects that should have come
    // before it are taken off the plan.
    std::optional<AheadLook> Take(const SeenObject& object);
    // The object of that number was changed here: no look at it is believed.
    void Forget(std::uint64_t inode);
    // No look that was taken or begun until now is believed.
    void ForgetAll() { believedFrom_ = added_; }
    // Takes all off the plan, and waits until no path of it is in use.
    void Drop();

  private:
    static constexpr std::size_t kSlots = 256; // a power of 2

    struct Slot {
        SeenObject object;
        std::optional<AheadLook> look; // the second thread's until it has done the slot
        bool isBelieved = true;
    };

    Slot& At(std::size_t index) { return slots_[index % kSlots]; }
    void Wake();
    void Work();
    void LookAtAdded();

    const Look look_;
    std::array<Slot, kSlots> slots_;
    // Slots are counted from the first on, and used round and round.
    std::atomic<std::size_t> added_ = 0;
    std::atomic<std::size_t> passed_ = 0; // asked for, or taken off the plan
    std::atomic<std::size_t> done_ = 0;   // by the second thread
    std::size_t believedFrom_ = 0;
    std::mutex mutex_;
    std::condition_variable more_;
    std::condition_variable resting_;
    bool isResting_ = false;
    bool isEnding_ = false;
    std::thread thread_;
};

} // namespace tarvix::platform
