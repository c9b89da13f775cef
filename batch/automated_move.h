#pragma once

#include "batch/move_batch.h"

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::batch {

// Goes down both lists, then to what is to follow. Nobody is asked anything meanwhile; `cmdStop`
// and `cmdNext` work. Leaves the window free, with the criteria of the last search.
BatchOutcome RunAutomatedMove(session::Session& session, const MoveBatch& batch);

// What such a run would find, line by line, each search on the disk as it stands: nothing is moved.
// Ends early when it is stopped; the error of a list that can't be read on.
platform::Result<std::vector<PlannedStep>> PlanAutomatedMove(session::Session& session,
                                                             const MoveBatch& batch);

// Asks for all of a batch, runs it and tells how it ended.
void mnuTools_AutomatedMove_Click(session::Session& session);

void AddBatchEvents(session::EventTable& events);

} // namespace tarvix::batch
