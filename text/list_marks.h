#pragma once

#include <string_view>

namespace tarvix::text {

// The line that ends a list or a file of settings, and the one that starts some lists over.
inline constexpr std::string_view kEndMark = "*EOF";
inline constexpr std::string_view kRepeatMark = "*REPEAT";

} // namespace tarvix::text
