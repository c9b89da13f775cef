#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Gives each selected object a new name in its place, as the action window says: text replaced in
// the name, each hit by a rename of its own, or inserted into it. First all files, then all
// folders. A name that is taken is never replaced. Sets `blnRenamed` when any object got a new
// name, `blnStopped` when the user asked to stop at a name that was taken, and the totals.
// `blnStopAction` takes effect at the next object.
void RenameOnly(session::Session& session);

} // namespace tarvix::actions
