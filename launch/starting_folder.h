#pragma once

#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::launch {

// The folder that programs begin in, whatever they open: that of the first default search folder
// (drive path, no final "\" but a drive's own); it need not be there.
std::string StartingFolder(session::Session& session);

} // namespace tarvix::launch
