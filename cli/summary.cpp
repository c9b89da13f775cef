#include "cli/summary.h"

#include "session/session_state.h"

#include <array>
#include <ostream>
#include <utility>

namespace tarvix::cli {

void Summarize(Host& host, std::string_view done, const session::ActionTotals& totals,
               std::int64_t wanted) {
    host.out << done << ' ' << totals.done - totals.deleted << " of " << wanted
             << (wanted == 1 ? " object" : " objects");
    const std::array<std::pair<std::int64_t, std::string_view>, 5> others{
        {{totals.deleted, " deleted for good"},
         {totals.duplicates, " skipped as they exist already"},
         {totals.skipped - totals.duplicates, " skipped"},
         {totals.failed, " failed"},
         {wanted - totals.done - totals.skipped - totals.failed, " not reached"}}};
    std::string_view between = "; ";
    for (const auto& [count, what] : others) {
        if (count == 0) continue;
        host.out << between << count << what;
        between = ", ";
    }
    host.out << "." << std::endl;
}

} // namespace tarvix::cli
