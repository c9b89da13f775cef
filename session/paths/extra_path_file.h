#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {

// The second file of a list of paths: " Extra Path Only" in front of the last dot of the file's own
// name, which gets one if it has none. Drive paths.
std::string ExtraPathFile(std::string_view file);

} // namespace tarvix::session
