#pragma once

#include <string_view>

namespace tarvix::session {

struct Session;

// A search is about to use a text that is too long for it: tells so, logs it and asks the search to
// stop.
void RefuseLongSearch(Session& session, std::string_view searchText, std::string_view routine);

} // namespace tarvix::session
