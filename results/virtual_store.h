#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// The copy that stands in the virtual store for an object of a protected folder: the store's path,
// or nothing when there is no such copy.
std::optional<std::string> FindInVirtualStore(session::Session& session, std::string_view path);

} // namespace tarvix::results
