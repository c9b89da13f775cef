#pragma once

#include <string_view>

namespace tarvix::session {

// Name and version as people see them: "Tarvix", "0.1.0"; of this build.
constexpr std::string_view kProductName = "Tarvix";
std::string_view ProductVersion();

} // namespace tarvix::session
