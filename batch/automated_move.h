#pragma once

#include "batch/move_batch.h"

#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::batch {

constexpr std::string_view kMoveAction = "Automated Move";

// Goes down both lists, then to what is to follow. Nobody is asked anything meanwhile; `cmdStop`
// and `cmdNext` work. Leaves the window free, with the criteria of the last search.
BatchOutcome RunAutomatedMove(session::Session& session, const MoveBatch& batch);

// What such a run would find, line by line, each search on the disk as it stands: nothing is moved.
// Ends early when it is stopped; the error of a list that can't be read on.
platform::Result<std::vector<PlannedStep>> PlanAutomatedMove(session::Session& session,
                                                             const MoveBatch& batch);

} // namespace tarvix::batch
