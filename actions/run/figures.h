#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::actions {

// Figures in sentences for people.

// "1 file", "1,204 files".
std::string Counted(std::int64_t count, std::string_view what);
// "999 bytes", "40.0 kB", "1.5 GB": decimal units, a tenth below 100.
std::string SizeText(double bytes);
// "0:59", "about 2 minutes", "about 3 hours".
std::string TimeLeftText(std::int64_t seconds);

} // namespace tarvix::actions
