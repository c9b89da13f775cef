#pragma once

#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// Tells that a path is too long and has no short form; in automatic mode the log is told.
void RefuseUnshortened(session::Session& session, std::string_view path);

} // namespace tarvix::generate
