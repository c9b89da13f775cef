#pragma once

#include "text/dates.h"

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvix::cli {

// The largest size that the size boxes take.
constexpr std::int64_t kLargestSize = 2'147'483'647;

// Values of options. A failure is one sentence that names the option and what it takes.

// "4096", "10K", "10M", "1G" in bytes; the units are binary, in either case, "B" or "iB" behind
// them allowed.
std::expected<std::int64_t, std::string> ReadSize(std::string_view option, std::string_view value);

// A date, with or without a time of day.
std::expected<text::DateTime, std::string> ReadMoment(std::string_view option,
                                                      std::string_view value);
// The same; without a time of day it is the last second of the day.
std::expected<text::DateTime, std::string> ReadLastMoment(std::string_view option,
                                                          std::string_view value);

// The two ends of "A..B"; nothing when an end is missing.
std::optional<std::pair<std::string_view, std::string_view>> SplitRange(std::string_view value);

} // namespace tarvix::cli
