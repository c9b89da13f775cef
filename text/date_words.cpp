#include "text/date_words.h"

#include "text/case.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <string>
#include <vector>

namespace tarvix::text {

namespace {

constexpr std::int64_t kDaySeconds = 86400;
constexpr std::int64_t kHourSeconds = 3600;
constexpr int kMostCount = 9999;
constexpr std::array<std::string_view, 7> kWeekdays{"monday", "tuesday",  "wednesday", "thursday",
                                                    "friday", "saturday", "sunday"};

enum class Stretch { kHour, kDay, kWeek, kMonth, kYear };
struct StretchWord {
    std::string_view word; // of one of them
    Stretch stretch;
};
constexpr std::array<StretchWord, 5> kStretches{{{"hour", Stretch::kHour},
                                                 {"day", Stretch::kDay},
                                                 {"week", Stretch::kWeek},
                                                 {"month", Stretch::kMonth},
                                                 {"year", Stretch::kYear}}};

std::vector<std::string> WordsOf(std::string_view s) {
    std::vector<std::string> words;
    for (const std::string_view piece : Split(s, ' ')) {
        if (!piece.empty()) words.push_back(Lower(piece));
    }
    return words;
}

std::optional<Stretch> StretchOf(std::string_view word) {
    if (word.ends_with('s')) word.remove_suffix(1);
    const auto* const found = std::ranges::find(kStretches, word, &StretchWord::word);
    return found == kStretches.end() ? std::nullopt : std::optional(found->stretch);
}

std::optional<int> CountOf(std::string_view word) {
    int count = 0;
    const char* end = word.data() + word.size();
    if (!IsAllDigits(word) || std::from_chars(word.data(), end, count).ec != std::errc{}) return {};
    return count >= 1 && count <= kMostCount ? std::optional(count) : std::nullopt;
}

DateTime StartOfDay(DateTime day) {
    day.hour = day.minute = day.second = 0;
    return day;
}

DateTime DaysLater(const DateTime& day, std::int64_t days) {
    return FromSeconds(ToSeconds(day) + days * kDaySeconds);
}

// The same day of another month, or the last one where that month is shorter.
DateTime MonthsLater(DateTime day, int months) {
    using namespace std::chrono;
    const year_month wanted =
        year_month(year(day.year), month(1)) + std::chrono::months(day.month - 1 + months);
    const unsigned longest = static_cast<unsigned>((wanted / std::chrono::last).day());
    day.year = static_cast<int>(wanted.year());
    day.month = static_cast<int>(static_cast<unsigned>(wanted.month()));
    day.day = std::min(day.day, static_cast<int>(longest));
    return day;
}

// Up to, not with, the first second of what comes behind.
DateSpan Until(const DateTime& first, const DateTime& behind) {
    return {first, FromSeconds(ToSeconds(behind) - 1)};
}

DateSpan DayOf(const DateTime& day) {
    const DateTime start = StartOfDay(day);
    return Until(start, DaysLater(start, 1));
}

std::int64_t DaysSinceMonday(const DateTime& day) {
    constexpr std::int64_t kFirstMonday = 4; // 1970-01-05, in days
    const std::int64_t days = ToSeconds(StartOfDay(day)) / kDaySeconds - kFirstMonday;
    return (days % 7 + 7) % 7;
}

// The week, month or year that is `back` before that of a day.
DateSpan Around(const DateTime& day, Stretch stretch, int back) {
    DateTime start = StartOfDay(day);
    switch (stretch) {
    case Stretch::kHour:
        start.hour = day.hour;
        start = FromSeconds(ToSeconds(start) - back * kHourSeconds);
        return Until(start, FromSeconds(ToSeconds(start) + kHourSeconds));
    case Stretch::kDay:
        start = DaysLater(start, -back);
        return Until(start, DaysLater(start, 1));
    case Stretch::kWeek:
        start = DaysLater(start, -DaysSinceMonday(start) - std::int64_t{7} * back);
        return Until(start, DaysLater(start, 7));
    case Stretch::kMonth:
        start.day = 1;
        start = MonthsLater(start, -back);
        return Until(start, MonthsLater(start, 1));
    case Stretch::kYear:
        start.day = start.month = 1;
        start.year -= back;
        return Until(start, MonthsLater(start, 12));
    }
    return {};
}

DateTime Back(const DateTime& day, Stretch stretch, int count) {
    switch (stretch) {
    case Stretch::kHour:
        return FromSeconds(ToSeconds(day) - count * kHourSeconds);
    case Stretch::kDay:
        return DaysLater(day, -count);
    case Stretch::kWeek:
        return DaysLater(day, std::int64_t{-7} * count);
    case Stretch::kMonth:
        return MonthsLater(day, -count);
    case Stretch::kYear:
        return MonthsLater(day, -12 * count);
    }
    return day;
}

// "last 7 days": so many with today; hours count from now.
DateSpan LastOf(const DateTime& now, Stretch stretch, int count) {
    if (stretch == Stretch::kHour) return {Back(now, stretch, count), now};
    const DateSpan today = DayOf(now);
    return {DaysLater(Back(today.first, stretch, count), 1), today.last};
}

std::optional<DateSpan> OneWord(const std::string& word, const DateTime& now) {
    if (word == "now") return DateSpan{now, now};
    if (word == "today") return DayOf(now);
    if (word == "yesterday") return Around(now, Stretch::kDay, 1);
    const auto weekday = std::ranges::find(kWeekdays, word);
    if (weekday == kWeekdays.end()) return std::nullopt;
    const std::int64_t wanted = weekday - kWeekdays.begin();
    return DayOf(DaysLater(now, -((DaysSinceMonday(now) - wanted + 7) % 7)));
}

std::optional<DateSpan> SeveralWords(const std::vector<std::string>& words, const DateTime& now) {
    const bool isLast = words[0] == "last" || words[0] == "past";
    if (words.size() == 2 && (isLast || words[0] == "this")) {
        const auto stretch = StretchOf(words[1]);
        if (!stretch || words[1].ends_with('s')) return std::nullopt;
        return Around(now, *stretch, isLast ? 1 : 0);
    }
    if (words.size() != 3) return std::nullopt;
    const bool isAgo = words[2] == "ago";
    const auto count = CountOf(words[isAgo ? 0 : 1]);
    const auto stretch = StretchOf(words[isAgo ? 1 : 2]);
    if (!count || !stretch) return std::nullopt;
    if (isLast && !isAgo) return LastOf(now, *stretch, *count);
    if (!isAgo) return std::nullopt;
    const DateTime then = Back(now, *stretch, *count);
    return *stretch == Stretch::kHour ? DateSpan{then, then} : DayOf(then);
}

// "2024", "2024-03" or "2024/03".
std::optional<DateSpan> YearOrMonth(std::string_view s) {
    const std::size_t mark = s.find_first_of("-/");
    const std::string_view year = s.substr(0, mark);
    if (year.size() != 4 || !IsAllDigits(year) || year < "1000") return std::nullopt;
    DateTime start{.year = *CountOf(year), .month = 1, .day = 1};
    if (mark == s.npos) return Around(start, Stretch::kYear, 0);
    const auto month = CountOf(s.substr(mark + 1));
    if (!month || *month > 12) return std::nullopt;
    start.month = *month;
    return Around(start, Stretch::kMonth, 0);
}

} // namespace

std::optional<DateSpan> ParseDateWords(std::string_view s, const DateTime& now) {
    s = Trim(s);
    if (const auto date = ParseDate(s)) {
        if (!date->HasDate()) return std::nullopt;
        const bool hasTime = s.find(':') != s.npos;
        return hasTime ? DateSpan{*date, *date} : DayOf(*date);
    }
    if (const auto span = YearOrMonth(s)) return span;
    const std::vector<std::string> words = WordsOf(s);
    if (words.empty()) return std::nullopt;
    return words.size() == 1 ? OneWord(words[0], now) : SeveralWords(words, now);
}

} // namespace tarvix::text
