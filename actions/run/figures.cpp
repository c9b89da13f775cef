#include "actions/run/figures.h"

#include "text/format.h"

#include <fmt/core.h>

namespace tarvix::actions {

namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;

} // namespace

std::string Counted(std::int64_t count, std::string_view what) {
    return fmt::format("{} {}{}", text::Format(count, "#,##0"), what, count == 1 ? "" : "s");
}

std::string TimeLeftText(std::int64_t seconds) {
    if (seconds < kMinute) return fmt::format("0:{:02}", seconds);
    const bool isLong = seconds >= 2 * kHour;
    const std::int64_t unit = isLong ? kHour : kMinute;
    return fmt::format("about {}",
                       Counted((seconds + unit / 2) / unit, isLong ? "hour" : "minute"));
}

} // namespace tarvix::actions
