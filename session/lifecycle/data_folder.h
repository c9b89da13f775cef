#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::lifecycle {

// Finds the data folder, makes it if it is missing, and forms the paths of all files in it. The
// levels that were made are logged once the log is open.
void FindDataFolder(session::Session& session);
void FormDataPaths(session::Session& session);

} // namespace tarvix::lifecycle
