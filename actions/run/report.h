#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// What an action did, told at its end: the error log is offered after a failure in automatic mode,
// and a Special Rule gets its counts.
void ReportActionResult(session::Session& session, const ActionRun& run);

} // namespace tarvix::actions
