#pragma once

#include "platform/seen_object.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// Lets the machine look at the next files of the selection while those before them are settled.
class LooksAhead {
  public:
    LooksAhead(session::Session& session, const ActionRun& run) : session_(session), run_(run) {}
    ~LooksAhead();
    LooksAhead(const LooksAhead&) = delete;
    LooksAhead& operator=(const LooksAhead&) = delete;

    // To be called before each object is settled, in the order of the selection.
    void At(std::size_t index);

  private:
    // How many objects ahead are settled in time.
    std::size_t InTime(std::size_t index);

    session::Session& session_;
    const ActionRun& run_;
    std::size_t planned_ = 0; // objects of the selection so far
    // Of the last plan.
    std::size_t ahead_ = 0; // objects
    std::size_t plannedAt_ = 0;
    std::int64_t plannedTime_ = 0; // nanoseconds that only grow
    std::vector<platform::SeenObject> next_;
};

} // namespace tarvix::actions
