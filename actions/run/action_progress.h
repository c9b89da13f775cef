#pragma once

#include "platform/file_system.h"

#include <cstdint>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// How far an action is, shown in the action window a few times a second: objects, bytes, speed and
// time left. It shows while it lives; the copies of its run report to it.
class ActionProgress {
  public:
    // With no bytes to come the bar counts objects.
    ActionProgress(session::Session& session, std::int64_t objects, std::int64_t bytes);
    ~ActionProgress();
    ActionProgress(const ActionProgress&) = delete;
    ActionProgress& operator=(const ActionProgress&) = delete;

    // The observer of a copy: lets waiting events run, too, and abandons it for `blnStopNow` alone.
    bool InFile(const platform::CopyProgress& progress);
    // One object is settled.
    void Step();

  private:
    void Show(bool now);
    void LeaveOutPause(std::int64_t ticks);

    session::Session& session_;
    std::int64_t objects_;
    std::int64_t bytes_;
    std::int64_t objectsDone_ = 0;
    std::int64_t bytesBefore_ = 0; // of the objects that are settled
    std::int64_t bytesInHand_ = 0;
    std::int64_t bytesOfHand_ = 0; // of the whole object in hand
    std::int64_t started_;         // less the time that questions took
    std::int64_t seen_;
    std::int64_t seenBytes_ = 0;
    std::int64_t due_;
};

} // namespace tarvix::actions
