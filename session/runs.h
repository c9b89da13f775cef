#pragma once

namespace tarvix::session {

class EventTable;

// The menu entry that lists the action logs of the runs, and the buttons of its window.
void AddRunsEvents(EventTable& events);

} // namespace tarvix::session
