#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {

struct Session;

// The lines of a Multiple Path List (drive path) up to "*EOF" or its end, as drive paths joined
// with "|". A list that can't be read to its end is told, and gives an empty text.
std::string ReadPathList(Session& session, std::string_view path);

} // namespace tarvix::session
