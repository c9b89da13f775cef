#include "cli/summary.h"

#include "session/session_state.h"

#include <fmt/core.h>

#include <array>
#include <ostream>
#include <string>
#include <utility>

namespace tarvix::cli {

int Summarize(Host& host, std::string_view done, const session::ActionTotals& totals,
              std::int64_t wanted) {
    const std::array<std::pair<std::int64_t, std::string_view>, 9> others{
        {{totals.deleted, "deleted for good"},
         {totals.copiedOnly, "copied only, the originals still stand"},
         {totals.keptApart, "renamed beside others that were placed just before"},
         {totals.leftParts, "left parts of ended runs removed"},
         {totals.duplicates, totals.duplicates == 1 ? "skipped as it exists already"
                                                    : "skipped as they exist already"},
         {totals.unchanged, "unchanged"},
         {totals.skipped - totals.duplicates - totals.unchanged, "skipped"},
         {totals.failed, "failed"},
         {wanted - totals.done - totals.skipped - totals.failed, "not reached"}}};
    std::string line =
        fmt::format("{} {} of {} object{}", done, totals.done - totals.deleted - totals.copiedOnly,
                    wanted, wanted == 1 ? "" : "s");
    std::string_view between = "; ";
    for (const auto& [count, what] : others) {
        if (count == 0) continue;
        line += fmt::format("{}{} {}", between, count, what);
        between = ", ";
    }
    host.out << line << "." << std::endl;
    const bool isAll = totals.done + totals.duplicates + totals.unchanged == wanted;
    return isAll && totals.copiedOnly == 0 ? kDone : kSomeFailed;
}

} // namespace tarvix::cli
