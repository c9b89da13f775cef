#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// Runs the loop of the duplicate choice that is set (none, when none is), hides the window, and
// after a move marks the list as out of date.
void DispatchByDuplicates(session::Session& session, ActionRun& run);

} // namespace tarvix::actions
