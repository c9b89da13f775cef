#pragma once

#include <string_view>

namespace tarvix::session {
struct SessionState;
}

namespace tarvix::search {

// What a list without rows says: that a search runs, that it found nothing, or how to begin one.
std::string_view EmptyListText(const session::SessionState& state);

} // namespace tarvix::search
