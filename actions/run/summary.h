#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct ActionTotals;
}

namespace tarvix::actions {

// "Copied", "Moved" or "Renamed" for the key of an action that places objects; empty for others.
std::string_view DoneVerb(std::string_view action);

// "Moved 12 of 15 objects, 3 skipped as duplicates."
std::string SummaryText(const session::ActionTotals& totals, std::string_view verb);

} // namespace tarvix::actions
