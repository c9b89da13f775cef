#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::lifecycle {

// The session is a first run while no "Search For" history file exists: shows the notice and offers
// the help, in one window where a front of a machine with native paths has windows, else in three
// boxes; then makes that file.
void FirstRunCheck(session::Session& session);

// The buttons of that window.
void AddFirstRunEvents(session::EventTable& events);

} // namespace tarvix::lifecycle
