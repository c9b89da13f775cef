#pragma once

#include <string_view>

namespace tarvix::text {

// What no name in a drive path holds as itself; control characters come on top.
inline constexpr std::string_view kNeverInNames = "\\/:*?\"<>|";

// Codes 0 to 31.
constexpr bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 32;
}

} // namespace tarvix::text
