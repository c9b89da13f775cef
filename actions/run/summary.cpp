#include "actions/run/summary.h"

#include "session/session_state.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace tarvix::actions {

std::string SummaryText(const session::ActionTotals& totals, std::string_view verb) {
    const auto figure = [](std::int64_t count) { return text::Format(count, "#,##0"); };
    const std::int64_t reached = totals.done + totals.skipped + totals.failed;
    const std::int64_t all = std::max(totals.wanted, reached);
    std::string told = fmt::format("{} {} of {} {}", verb, figure(totals.done - totals.copiedOnly),
                                   figure(all), all == 1 ? "object" : "objects");
    const std::array<std::pair<std::int64_t, const char*>, 8> others{
        {{totals.copiedOnly, " copied only, the originals still stand"},
         {totals.keptApart, " renamed beside others that were placed just before"},
         {totals.leftParts, " left parts of ended runs removed"},
         {all - reached, " not reached"},
         {totals.duplicates, " skipped as duplicates"},
         {totals.unchanged, " unchanged"},
         {totals.skipped - totals.duplicates - totals.unchanged, " left alone"},
         {totals.failed, " failed"}}};
    for (const auto& [count, what] : others) {
        if (count > 0) told += fmt::format(", {}{}", figure(count), what);
    }
    told += '.';
    return told;
}

} // namespace tarvix::actions
