#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// The other actions of the window: their checks in order, the confirmation, the run and the report.
// What writes a file or makes folders is reached by its event.
void RequestTextFile(session::Session& session, ActionRun& run);
void RequestMakeFolders(session::Session& session, ActionRun& run);
void RequestAutomatedPlaylist(session::Session& session, ActionRun& run);
void RequestRename(session::Session& session, ActionRun& run);
void RequestRenameAsTitle(session::Session& session, ActionRun& run);
void RequestRenameFromFile(session::Session& session, ActionRun& run);

} // namespace tarvix::actions
