#include "actions/run/figures.h"

#include "text/format.h"

#include <fmt/core.h>

#include <array>
#include <cstddef>

namespace tarvix::actions {

namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;

} // namespace

std::string Counted(std::int64_t count, std::string_view what) {
    return fmt::format("{} {}{}", text::Format(count, "#,##0"), what, count == 1 ? "" : "s");
}

std::string SizeText(double bytes) {
    constexpr std::array<const char*, 6> kUnits{" bytes", " kB", " MB", " GB", " TB", " PB"};
    if (bytes == 1) return "1 byte";
    std::size_t unit = 0;
    for (; bytes >= 1000 && unit + 1 < kUnits.size(); ++unit) {
        bytes /= 1000;
    }
    const auto tenths = static_cast<std::int64_t>(bytes * 10);
    std::string text = text::Format(tenths / 10, "#,##0");
    if (unit > 0 && bytes < 100) text += fmt::format(".{}", tenths % 10);
    return text + kUnits[unit];
}

std::string TimeLeftText(std::int64_t seconds) {
    if (seconds < kMinute) return fmt::format("0:{:02}", seconds);
    const bool isLong = seconds >= 2 * kHour;
    const std::int64_t unit = isLong ? kHour : kMinute;
    return "about " + Counted((seconds + unit / 2) / unit, isLong ? "hour" : "minute");
}

} // namespace tarvix::actions
