#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::search {

// Fills "Search Location(s)" as the chosen browse mode says: a folder in place of the text or
// behind it, or the lines of a Multiple Path List in place of it or behind it.
void cmdBrowse_Click(session::Session& session);

// Adds what was dropped on the locations (native, drive or share paths) behind the text of the box:
// folders, the lines of Multiple Path Lists, and the folders of other files. What isn't there is
// passed over.
void DropLocations(session::Session& session, const std::vector<std::string>& paths);

// Marks one of the four modes, in the options and in the menu alike.
void ChooseBrowseMode(session::Session& session, int mode);

// The browse button, its four modes, and what clears the locations.
void AddBrowseEvents(session::EventTable& events);

} // namespace tarvix::search
