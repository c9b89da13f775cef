#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct ActionTotals;
}

namespace tarvix::actions {

// "Moved 12 of 15 objects, 3 skipped as duplicates."
std::string SummaryText(const session::ActionTotals& totals, std::string_view verb);

} // namespace tarvix::actions
