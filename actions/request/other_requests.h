#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// The other actions of the window: their checks in order, the confirmation, the run and the report.
// What writes a file, makes folders or renames from other sources is reached by its event.
void RequestTextFile(session::Session& session);
void RequestMakeFolders(session::Session& session);
void RequestAutomatedPlaylist(session::Session& session);
void RequestRename(session::Session& session);
void RequestRenameAsTitle(session::Session& session);
void RequestRenameFromFile(session::Session& session);

} // namespace tarvix::actions
