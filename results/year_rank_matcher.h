#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvix::results {

// `intMaxYear` is the first year that is too late.
constexpr bool IsPlausibleYear(int year, int intMaxYear) {
    return year > 1450 && year < intMaxYear;
}

// A piece of a text that a row of kYearRankPatterns accepts.
struct YearRankMatch {
    std::size_t row;
    std::string_view piece; // points into the text
};

// The lowest row with an accepted match in `text` (UTF-8, compared character by character and
// without regard to case), and of that row's matches the last. Years must be plausible, but those
// before Christ. Never allocates, and takes one pass over the text.
std::optional<YearRankMatch> FindYearRank(std::string_view text, int intMaxYear);

} // namespace tarvix::results
