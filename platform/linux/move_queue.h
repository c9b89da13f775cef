#pragma once

#include "platform/file_system.h"
#include "platform/linux/system_calls.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace tarvix::platform {

// A rename of which both ends were found.
struct ReadyMove {
    std::shared_ptr<const Known> source; // what the places point into
    std::shared_ptr<const Known> target;
    Location from;
    Location to;
    std::int64_t believedUntil = 0; // by the store's tick
    MoveNote note;
    std::optional<PlatformError> unwritten; // why its note isn't written
};

enum class MoveEnd : std::uint8_t {
    kMade,
    kGivenUp,   // it was not tried
    kRefused,   // and the system refused it
    kExchanged, // another object was moved, since it had taken the place of the source
};

// Makes moves on a second thread, one after the other, and none behind one that can't be made. All
// calls come from one thread.
class MoveQueue {
  public:
    // Makes one move, on the second thread.
    using Make = std::function<MoveEnd(ReadyMove&)>;

    // What became of moves since the last call, from the first of them on.
    struct Told {
        std::size_t made = 0;
        MoveEnd end = MoveEnd::kMade; // of the first that was left
        std::vector<ReadyMove> left;
        std::optional<PlatformError> unwritten;
    };

    explicit MoveQueue(Make make) : make_(std::move(make)) {}
    // Gives up what isn't begun.
    ~MoveQueue();
    MoveQueue(const MoveQueue&) = delete;
    MoveQueue& operator=(const MoveQueue&) = delete;

    // False without room or a thread, and behind one that was left until Take told of it.
    bool Add(ReadyMove move);
    bool IsEmpty() const { return told_ == added_; }
    Told Take(MoveWait wait);

  private:
    static constexpr std::size_t kSlots = 128; // a power of 2

    ReadyMove& At(std::size_t index) { return slots_[index % kSlots]; }
    void Wait(MoveWait wait);
    // And the second thread has seen it.
    bool HasHalted();
    void Work();
    void MakeAdded();

    const Make make_;
    std::array<ReadyMove, kSlots> slots_;
    // Slots are counted from the first on, and used round and round.
    std::size_t told_ = 0; // by Take
    std::atomic<std::size_t> added_ = 0;
    std::atomic<std::size_t> made_ = 0;
    std::atomic<std::size_t> awaited_ = 0; // so many made end a wait
    std::atomic<bool> isHalted_ = false;   // no move is begun
    std::mutex mutex_;
    std::condition_variable more_;
    std::condition_variable progress_;
    MoveEnd end_ = MoveEnd::kGivenUp; // of the move that halted all
    bool isResting_ = true;
    bool isEnding_ = false;
    std::thread thread_;
};

} // namespace tarvix::platform
