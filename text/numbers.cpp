#include "text/numbers.h"

#include "text/characters.h"

#include <algorithm>
#include <charconv>

namespace tarvix::text {

std::optional<std::int32_t> ParseWholeNumber(std::string_view s) {
    s = Trim(s);
    if (s.starts_with('+')) {
        s.remove_prefix(1);
        if (s.starts_with('-')) return {};
    }
    std::int32_t value = 0;
    const char* end = s.data() + s.size();
    const auto [stop, error] = std::from_chars(s.data(), end, value);
    if (error != std::errc() || stop != end) return {};
    return value;
}

bool IsNumeric(std::string_view s) {
    return ParseWholeNumber(s).has_value();
}

bool IsAllDigits(std::string_view s) {
    return !s.empty() && std::ranges::all_of(s, [](char c) { return c >= '0' && c <= '9'; });
}

bool IsBlankValue(std::string_view s) {
    return s.empty() || s == "12:00:00 AM";
}

bool IsZeroOrBlank(std::string_view s) {
    return IsBlankValue(s) || s == "0";
}

} // namespace tarvix::text
