#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// The share "\\server\share\..." behind an "smb://" address or behind the folder that the desktop
// shows for it, where that share is mounted; for a folder directly in one named "NetHood" the
// target of the shortcut in it; any other path as it is.
std::string ResolveNetHood(session::Session& session, std::string_view path);

} // namespace tarvix::results
