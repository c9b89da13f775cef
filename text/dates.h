#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::text {

// A date with a time of day, in no particular zone. A date part of all zeros stands for no date.
struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    auto operator<=>(const DateTime&) const = default;

    // A zero date stands for none, a zero time for midnight or none.
    bool HasDate() const { return year != 0 || month != 0 || day != 0; }
    bool HasTime() const { return hour != 0 || minute != 0 || second != 0; }
    bool IsZero() const { return !HasDate() && !HasTime(); }
};

// "11/15/2026 7:54:52 PM"; without the time when that is zero, without the date when there is none,
// and "12:00:00 AM" when both are zero.
std::string DefaultDateText(const DateTime& value);

// Reads month/day/year or year/month/day, with "/" or "-" between, and behind it, or alone, a time
// h:mm or h:mm:ss, of 24 hours or with AM or PM. Years of two digits are 2000 to 2029 and 1930 to
// 1999. Blanks around are passed over. Empty for anything else and for a date that doesn't exist.
std::optional<DateTime> ParseDate(std::string_view s);
// Whether ParseDate would give a value.
bool IsDate(std::string_view s);

// Seconds from 1970-01-01 00:00:00, proleptic Gregorian. A value without a date counts as one on
// 1899-12-30, and fields beyond their range carry over.
std::int64_t ToSeconds(const DateTime& value);
DateTime FromSeconds(std::int64_t seconds);

} // namespace tarvix::text
