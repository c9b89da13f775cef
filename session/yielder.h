#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace tarvix::platform {
class Clock;
}

namespace tarvix::session {

// Lets waiting events run inside long loops. A yield costs nanoseconds: the queue is pumped at most
// every 15 ms.
class Yielder {
  public:
    explicit Yielder(platform::Clock& clock) : clock_(clock) {}
    // What runs the waiting events; none in a program without a window.
    void SetPump(std::function<void()> pump) { pump_ = std::move(pump); }
    // Runs `act` at the n-th yield from now (n from 1).
    void After(std::uint64_t n, std::function<void()> act);
    // Runs what `After` planned for this count, and the pump if it is due.
    void Yield();
    // Pumps at once, whatever the clock says.
    void PumpNow();
    // How many yields there were.
    std::uint64_t Count() const { return count_; }

  private:
    void RunDue();

    platform::Clock& clock_;
    std::function<void()> pump_;
    std::vector<std::pair<std::uint64_t, std::function<void()>>> planned_; // by count, last first
    std::uint64_t count_ = 0;
    std::uint64_t due_ = UINT64_MAX;
    std::int64_t nextPump_ = 0;
};

} // namespace tarvix::session
