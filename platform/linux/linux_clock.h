#pragma once

#include "platform/clock.h"

#include <array>
#include <atomic>
#include <optional>

namespace tarvix::platform {

// The machine's clock and time zone. Safe to use from several threads.
class LinuxClock : public Clock {
  public:
    // With `fixedNow` the time stands still.
    explicit LinuxClock(std::optional<text::DateTime> fixedNow = {});

    text::DateTime Now() override;
    text::DateTime ToLocal(FileTime time) override;
    std::int64_t Steady() override;
    void Sleep(std::int64_t milliseconds) override;

  private:
    std::int64_t OffsetAt(std::int64_t seconds);

    std::optional<text::DateTime> fixedNow_;
    // Days whose offset from UTC is one and the same all day: day and offset in one word each.
    std::array<std::atomic<std::uint64_t>, 16384> days_{}; // 44 years
};

} // namespace tarvix::platform
