#pragma once

#include "text/dates.h"

#include <optional>
#include <string_view>

namespace tarvix::text {

// A stretch of time: its first and its last second.
struct DateSpan {
    DateTime first;
    DateTime last;
    auto operator<=>(const DateSpan&) const = default;
};

// What people call a stretch of time, without regard to case, as seen at `now`: what ParseDate
// takes (a date alone is its whole day), "2024" and "2024-03", "now", "today", "yesterday", a day
// of the week (the last one, today's too), "this" or "last" "week", "month" or "year", "last 7
// days" (with today; also hours, weeks, months, years), "3 days ago" (that day; also weeks, months,
// years). Weeks begin on Monday. Empty for anything else.
std::optional<DateSpan> ParseDateWords(std::string_view s, const DateTime& now);

} // namespace tarvix::text
