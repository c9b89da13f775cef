#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tarvix::results {

// One form of a date inside a name. In the pattern "#" is one digit, "?" any one character, and all
// else itself in either case, brackets too. In the mask 1 to 9 copy that character of the piece
// found, "#" ends the rewriting and turns the month's name at the end into its number, and all else
// stands as it is.
struct YearRankPattern {
    std::string_view pattern;
    std::string_view mask;
};

inline constexpr std::size_t kLongestYearRankPattern = 8;

// The order is the rule: the first row with an accepted match wins, wherever it stands in the name.
// clang-format off
inline constexpr std::array<YearRankPattern, 78> kYearRankPatterns = {{
    // 0
    {"########", "1234-56"},
    {"####-###", "12345678"},
    // 2
    {"jan?####", "5678-123##"}, {"feb?####", "5678-123##"}, {"mar?####", "5678-123##"},
    {"apr?####", "5678-123##"}, {"may?####", "5678-123##"}, {"jun?####", "5678-123##"},
    {"jul?####", "5678-123##"}, {"aug?####", "5678-123##"}, {"sep?####", "5678-123##"},
    {"oct?####", "5678-123##"}, {"nov?####", "5678-123##"}, {"dec?####", "5678-123##"},
    // 14
    {"####?jan", "1234-678##"}, {"####?feb", "1234-678##"}, {"####?mar", "1234-678##"},
    {"####?apr", "1234-678##"}, {"####?may", "1234-678##"}, {"####?jun", "1234-678##"},
    {"####?jul", "1234-678##"}, {"####?aug", "1234-678##"}, {"####?sep", "1234-678##"},
    {"####?oct", "1234-678##"}, {"####?nov", "1234-678##"}, {"####?dec", "1234-678##"},
    // 26
    {"jan####", "4567-123##"}, {"feb####", "4567-123##"}, {"mar####", "4567-123##"},
    {"apr####", "4567-123##"}, {"may####", "4567-123##"}, {"jun####", "4567-123##"},
    {"jul####", "4567-123##"}, {"aug####", "4567-123##"}, {"sep####", "4567-123##"},
    {"oct####", "4567-123##"}, {"nov####", "4567-123##"}, {"dec####", "4567-123##"},
    // 38
    {"####jan", "1234-567##"}, {"####feb", "1234-567##"}, {"####mar", "1234-567##"},
    {"####apr", "1234-567##"}, {"####may", "1234-567##"}, {"####jun", "1234-567##"},
    {"####jul", "1234-567##"}, {"####aug", "1234-567##"}, {"####sep", "1234-567##"},
    {"####oct", "1234-567##"}, {"####nov", "1234-567##"}, {"####dec", "1234-567##"},
    // 50
    {"{####}.", "2345"}, {"(####).", "2345"}, {" {####}", "3456"}, {" (####)", "3456"},
    {"####?##", "1234-67"}, {"##?####", "4567-12"}, {"####?BC", "67 1234"},
    {"BC?####", "12 4567"}, {"####ish", "1234567"}, {"######", "1234-56"},
    // 60
    {"######", "3456-12"}, {"####BC", "56 1234"}, {"BC####", "12 3456"},
    {"###?BC", "56 0123"}, {"BC?###", "12 0456"}, {"{####}", "2345"}, {"(####)", "2345"},
    {"####?#", "1234-6"}, {"#?####", "3456-01"}, {"####_", "1234+"},
    // 70
    {"####+", "1234+"}, {"###BC", "45 0123"}, {"BC###", "12 0345"}, {"####", "1234"},
    {"###_", "123?"}, {"()", "Unknown"}, {"{}", "Unknown"}, {"[]", "Unknown"},
}};
// clang-format on

} // namespace tarvix::results
