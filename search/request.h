#pragma once

#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::search {

// The one driver of every search: reads the criteria from the controls, refuses bad ones with a
// message, walks each location for each search string, and then decides what the list shows and
// what runs next.
void cmdSearch_Click(session::Session& session);

void cmdStop_Click(session::Session& session);
void cmdNext_Click(session::Session& session);

// Hides `cmdNext`, and shows `chkNot` unless the text holds "[", "#" or "|".
void RestoreNotBox(session::Session& session);

void AddSearchEvents(session::EventTable& events);

// "files", "empty files", "files and folders", "folders" or "empty folders".
std::string_view KindText(int kind);

} // namespace tarvix::search
