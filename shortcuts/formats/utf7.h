#pragma once

#include <string>
#include <string_view>

namespace tarvix::shortcuts {

// The text form of UTF-16 in runs of base 64 between "+" and "-". What is no such run is taken as
// it is.
std::string FromUtf7(std::string_view text);
std::string ToUtf7(std::string_view text);

} // namespace tarvix::shortcuts
