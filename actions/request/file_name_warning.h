#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// A warning for a destination that may be meant as a file; empty without one. On a machine where
// folders have dots in their names too, it is for one that isn't there and is named like a file.
std::string FileNameWarning(session::Session& session, std::string_view destination);

} // namespace tarvix::actions
