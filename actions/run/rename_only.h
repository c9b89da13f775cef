#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

struct RenameOnlyEnd {
    bool blnRenamed = false; // an object got a new name
    bool blnStopped = false; // the user asked to stop at a name that was taken
};

// Gives each selected object a new name in its place, as the request says: text replaced in the
// name, each hit by a rename of its own, or inserted into it. First all files, then all folders. A
// name that is taken is never replaced. What became of each object goes to the run's sink and is
// counted in `lastAction`. `blnStopAction` takes effect at the next object.
RenameOnlyEnd RenameOnly(session::Session& session, ActionRun& run);

} // namespace tarvix::actions
