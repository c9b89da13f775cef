#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// The actions that give each object a place: their checks in order, the confirmation, the run by
// the duplicate choice, and the report.
void RequestCopyOrMove(session::Session& session, ActionRun& run);
void RequestCopyAsFolderName(session::Session& session, ActionRun& run);
// The same for a step of a batch, which nobody is asked about: what is wrong goes to the log.
void RequestAutomatedMove(session::Session& session, ActionRun& run);

} // namespace tarvix::actions
