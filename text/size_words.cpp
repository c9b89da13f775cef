#include "text/size_words.h"

#include "text/case.h"
#include "text/characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace tarvix::text {

namespace {

struct Unit {
    std::string_view letter;
    int power;
};

constexpr std::array<Unit, 4> kUnits{{{"K", 1}, {"M", 2}, {"G", 3}, {"T", 4}}};
constexpr std::array<std::string_view, 4> kPlainBytes{"", "B", "BYTE", "BYTES"};
constexpr double kMost = 9223372036854774784.0; // the last double below 2 to the 63rd

// The bytes that a unit stands for, 0 for none of them; nothing for a word that is none.
std::optional<double> BytesOf(std::string_view word) {
    const std::string upper = Upper(word);
    if (std::ranges::find(kPlainBytes, upper) != kPlainBytes.end()) return 0;
    for (const Unit& unit : kUnits) {
        if (!upper.starts_with(unit.letter)) continue;
        const std::string_view behind = std::string_view(upper).substr(1);
        if (behind == "B") return std::pow(1000.0, unit.power);
        if (behind.empty() || behind == "IB") return std::pow(1024.0, unit.power);
    }
    return std::nullopt;
}

std::optional<std::int64_t> WholeBytes(std::string_view number) {
    std::int64_t bytes = 0;
    const char* end = number.data() + number.size();
    const bool fits = std::from_chars(number.data(), end, bytes).ec == std::errc{};
    return fits ? std::optional(bytes) : std::nullopt;
}

} // namespace

std::optional<std::int64_t> ParseSize(std::string_view s) {
    s = Trim(s);
    const std::size_t digits = std::min(s.find_first_not_of("0123456789."), s.size());
    const std::string_view number = s.substr(0, digits);
    const auto unit = BytesOf(Trim(s.substr(digits)));
    const bool hasPoint = number.find('.') != number.npos;
    if (!unit || number.empty() || number.starts_with('.') || number.ends_with('.') ||
        (hasPoint && *unit == 0)) {
        return std::nullopt;
    }
    if (*unit == 0) return WholeBytes(number);
    double value = 0;
    const char* end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (error != std::errc{} || stop != end) return std::nullopt;
    value *= *unit;
    if (value > kMost) return std::nullopt;
    return static_cast<std::int64_t>(value);
}

} // namespace tarvix::text
