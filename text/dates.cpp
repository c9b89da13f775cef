#include "text/dates.h"

#include "text/characters.h"

#include <fmt/format.h>

#include <chrono>

namespace tarvix::text {

namespace {

constexpr std::int64_t kDaySeconds = 86400;

// Takes leading pieces off a text.
class Scanner {
  public:
    explicit Scanner(std::string_view s) : rest_(s) {}

    bool AtEnd() const { return rest_.empty(); }

    // One to four digits; `digits` tells how many, 0 for none.
    int Number(int& digits) {
        int value = 0;
        for (digits = 0; digits < 4 && StartsWithDigit(); ++digits) {
            value = value * 10 + (rest_.front() - '0');
            rest_.remove_prefix(1);
        }
        return value;
    }

    bool Number(int& value, int mostDigits) {
        int digits = 0;
        value = Number(digits);
        return digits > 0 && digits <= mostDigits;
    }

    bool Take(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    char TakeAny(std::string_view these) {
        if (rest_.empty() || !these.contains(rest_.front())) return 0;
        const char taken = rest_.front();
        rest_.remove_prefix(1);
        return taken;
    }

    bool TakeBlanks() {
        const std::size_t before = rest_.size();
        rest_ = LTrim(rest_);
        return rest_.size() < before;
    }

  private:
    bool StartsWithDigit() const {
        return !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9';
    }

    std::string_view rest_;
};

bool DateExists(const DateTime& value) {
    using namespace std::chrono;
    return value.year >= 100 &&
           year_month_day(year(value.year), month(unsigned(value.month)), day(unsigned(value.day)))
               .ok();
}

int FullYear(int year, int digits) {
    if (digits > 2) return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

bool ReadDate(Scanner& scanner, DateTime& value) {
    int digits = 0;
    int lastDigits = 0;
    const int first = scanner.Number(digits);
    const char separator = scanner.TakeAny("/-");
    int second = 0;
    if (digits == 0 || separator == 0 || !scanner.Number(second, 2)) return false;
    if (!scanner.Take(separator)) return false;
    const int third = scanner.Number(lastDigits);
    if (lastDigits == 0 || (digits > 2 && lastDigits > 2)) return false;
    if (digits > 2) {
        value.year = first, value.month = second, value.day = third;
    } else {
        value.month = first, value.day = second, value.year = FullYear(third, lastDigits);
    }
    return DateExists(value);
}

// "AM" or "PM", in either case, behind the time; false when something else follows it.
bool ReadHalf(Scanner& scanner, DateTime& value) {
    scanner.TakeBlanks();
    const char half = scanner.TakeAny("AaPp");
    if (half == 0) return true;
    if (scanner.TakeAny("Mm") == 0 || value.hour < 1 || value.hour > 12) return false;
    value.hour = value.hour % 12 + (half == 'P' || half == 'p' ? 12 : 0);
    return true;
}

bool ReadTime(Scanner& scanner, DateTime& value) {
    if (!scanner.Number(value.hour, 2) || !scanner.Take(':')) return false;
    if (!scanner.Number(value.minute, 2)) return false;
    if (scanner.Take(':') && !scanner.Number(value.second, 2)) return false;
    return value.hour <= 23 && value.minute <= 59 && value.second <= 59 && ReadHalf(scanner, value);
}

std::string TimeText(const DateTime& value) {
    const int hour = value.hour % 12 == 0 ? 12 : value.hour % 12;
    return fmt::format("{}:{:02}:{:02} {}M", hour, value.minute, value.second,
                       value.hour < 12 ? 'A' : 'P');
}

} // namespace

std::string DefaultDateText(const DateTime& value) {
    if (!value.HasDate()) return TimeText(value);
    std::string out = fmt::format("{}/{}/{}", value.month, value.day, value.year);
    return value.HasTime() ? fmt::format("{} {}", out, TimeText(value)) : out;
}

std::optional<DateTime> ParseDate(std::string_view s) {
    s = Trim(s);
    DateTime value;
    if (s.find_first_of("/-") != std::string_view::npos) {
        Scanner scanner(s);
        if (!ReadDate(scanner, value)) return {};
        if (scanner.AtEnd()) return value;
        if (!scanner.TakeBlanks() || !ReadTime(scanner, value) || !scanner.AtEnd()) return {};
        return value;
    }
    Scanner scanner(s);
    if (!ReadTime(scanner, value) || !scanner.AtEnd()) return {};
    return value;
}

bool IsDate(std::string_view s) {
    return ParseDate(s).has_value();
}

std::int64_t ToSeconds(const DateTime& value) {
    using namespace std::chrono;
    std::int64_t days = -25569; // 1899-12-30
    if (value.HasDate()) {
        const std::int64_t months = std::int64_t{value.year} * 12 + value.month - 1;
        const std::int64_t onlyYears = months >= 0 ? months / 12 : (months - 11) / 12;
        const year_month_day first(year(static_cast<int>(onlyYears)),
                                   month(static_cast<unsigned>(months - onlyYears * 12 + 1)),
                                   day(1));
        days = sys_days(first).time_since_epoch().count() + std::int64_t{value.day} - 1;
    }
    return days * kDaySeconds + std::int64_t{value.hour} * 3600 + std::int64_t{value.minute} * 60 +
           value.second;
}

DateTime FromSeconds(std::int64_t seconds) {
    using namespace std::chrono;
    const sys_seconds moment{std::chrono::seconds(seconds)};
    const sys_days date = floor<days>(moment);
    const year_month_day parts(date);
    const hh_mm_ss clock(moment - date);
    return {static_cast<int>(parts.year()),
            static_cast<int>(static_cast<unsigned>(parts.month())),
            static_cast<int>(static_cast<unsigned>(parts.day())),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

} // namespace tarvix::text
