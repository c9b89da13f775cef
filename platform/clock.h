#pragma once

#include "platform/object_facts.h"
#include "text/dates.h"

#include <cstdint>

namespace tarvix::platform {

class Clock {
  public:
    virtual ~Clock() = default;
    virtual text::DateTime Now() = 0; // local time
    // A file's time in local time; kNoTime gives a zero date.
    virtual text::DateTime ToLocal(FileTime time) = 0;
    // Nanoseconds that only grow; for measuring and pacing.
    virtual std::int64_t Steady() = 0;
    // Returns after so many milliseconds, or sooner when a signal comes.
    virtual void Sleep(std::int64_t milliseconds) = 0;
};

} // namespace tarvix::platform
