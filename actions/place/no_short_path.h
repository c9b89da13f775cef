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

} // namespace tarvix::actions
