#pragma once

#include <string>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// What the first lines of the list depend on that the action window would write; empty for an
// action that writes none, or whose lines are asked for later.
std::string FirstLinesKey(const session::Session& session);

// The first twenty of them, without possible duplicates, for people: UTF-8, names as they are
// shown.
std::vector<std::string> ListedFirst(session::Session& session);

} // namespace tarvix::generate
