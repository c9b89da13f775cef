#pragma once

namespace tarvix::session {

class EventTable;

// The options that the menu turns, at once and for the runs to come.
void AddOptionMenuEvents(EventTable& events);

} // namespace tarvix::session
