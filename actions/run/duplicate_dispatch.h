#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Runs the loop of the duplicate choice that is set (none, when none is), hides the window, and
// after a move marks the list as out of date.
void DispatchByDuplicates(session::Session& session);

} // namespace tarvix::actions
