#pragma once

#include "platform/clock.h"

#include <functional>

namespace tarvix::platform {

// A clock that stands still until it is set. The start is 2026-11-15 19:54:52, in a zone without
// an offset.
class MemoryClock : public Clock {
  public:
    text::DateTime Now() override { return now_; }
    text::DateTime ToLocal(FileTime time) override;
    std::int64_t Steady() override { return steady_ += step_; }
    // Goes on by so much, at once.
    void Sleep(std::int64_t milliseconds) override {
        slept += milliseconds;
        steady_ += milliseconds * 1'000'000;
        if (duringSleep) duringSleep();
    }

    void SetNow(const text::DateTime& now) { now_ = now; }
    void Advance(std::int64_t seconds);
    // How far local time is ahead of UTC.
    void SetZone(std::int64_t seconds) { zone_ = seconds; }
    // What each call of Steady adds, in nanoseconds; a millisecond at the start.
    void SetStep(std::int64_t nanoseconds) { step_ = nanoseconds; }

    std::int64_t slept = 0; // milliseconds, altogether
    std::function<void()> duringSleep;

    FileTime NowAsFileTime() const { return FromLocal(now_); }
    // The file time of a local time, for the dates of test files.
    FileTime FromLocal(const text::DateTime& local) const;

  private:
    text::DateTime now_{2026, 11, 15, 19, 54, 52};
    std::int64_t zone_ = 0;
    std::int64_t steady_ = 0;
    std::int64_t step_ = 1'000'000;
};

} // namespace tarvix::platform
