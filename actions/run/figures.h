#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::actions {

// Figures in sentences for people.

// "1 file", "1,204 files".
std::string Counted(std::int64_t count, std::string_view what);
// "0:59", "about 2 minutes", "about 3 hours".
std::string TimeLeftText(std::int64_t seconds);

} // namespace tarvix::actions
