#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// What an action did, told at its end: the error log is offered after a failure in automatic mode,
// and a Special Rule gets its counts.
void ReportActionResult(session::Session& session);

// Lifts the busy state after the report; the window is hidden already or stays as it is.
void Report(session::Session& session);

} // namespace tarvix::actions
