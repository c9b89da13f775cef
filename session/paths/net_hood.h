#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {

struct Session;

// The share "\\server\share\..." behind an "smb://" address or behind the folder that the desktop
// shows for it, where that share is mounted; any other path as it is.
std::string ResolveNetHood(Session& session, std::string_view path);

} // namespace tarvix::session
