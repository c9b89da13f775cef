#pragma once

#include <cstddef>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// A new path is longer than `limit` characters and has no short form. Logs so; in automatic mode
// `bytPathChoice` then cancels what is left of the action, otherwise the user is told and it skips
// the object in hand.
void RefuseWithoutShortPath(session::Session& session, std::string_view path, std::size_t limit);

// The same for a destination that could not be shortened enough to look at.
void RefuseUnconverted(session::Session& session, std::string_view path);

} // namespace tarvix::actions
