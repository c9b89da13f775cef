#pragma once

namespace tarvix::session {
class EventTable;
}

namespace tarvix::actions {

// The menu entries of the actions whose names come from elsewhere, and the button that writes the
// present names into a list.
void AddSourceEvents(session::EventTable& events);

} // namespace tarvix::actions
