#pragma once

#include <cstddef>
#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// Raised with the row as its index and the new name, in drive form, as its path.
constexpr std::string_view kRenameInPlace = "frmSearch.RenameInPlace";

// Gives the object of a row another name in its folder, by the checks, the questions and the log of
// "Rename"; its row bears that name then and stays where it is. Nothing for a spacer, for the same
// name, or while it can't be.
void RenameInPlace(session::Session& session, std::size_t row, std::string_view name);

void AddRenameInPlaceEvents(session::EventTable& events);

} // namespace tarvix::actions
