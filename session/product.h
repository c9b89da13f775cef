#pragma once

#include <string_view>

namespace tarvix::session {

// Name and version as people see them: "Tarvix", "0.1.0"; of this build.
constexpr std::string_view kProductName = "Tarvix";
std::string_view ProductVersion();

// Where the project is at home; pages that it writes lead there.
constexpr std::string_view kProductHome = "https://tarvix.org/";

} // namespace tarvix::session
