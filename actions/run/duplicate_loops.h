#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// The four loops over the selection, in list order, each object over all its destinations. They
// differ in what they do where something stands at the destination already; they end early when
// the user stops, cancels a prompt, or the disk is full. What became of each object goes to the
// run's sink and is counted in `lastAction`.
void SkipAllDuplicates(session::Session& session, ActionRun& run);
void OverwriteAllDuplicates(session::Session& session, ActionRun& run);
void RenameAllDuplicates(session::Session& session, ActionRun& run);
void Ask(session::Session& session, ActionRun& run);

} // namespace tarvix::actions
