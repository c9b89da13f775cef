#pragma once

#include "cli/host.h"

#include <cstdint>
#include <string_view>

namespace tarvix::session {
struct ActionTotals;
}

namespace tarvix::cli {

// The line on stdout of an action on `wanted` objects: "Copied 2 of 3 objects; 1 failed." `done`
// is its first word. Gives the exit code: whether all were done, or skipped by the rule for
// duplicates.
int Summarize(Host& host, std::string_view done, const session::ActionTotals& totals,
              std::int64_t wanted);

} // namespace tarvix::cli
