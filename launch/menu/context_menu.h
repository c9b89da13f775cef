#pragma once

namespace tarvix::session {
class EventTable;
struct EventArgs;
struct Session;
} // namespace tarvix::session

namespace tarvix::menu {

// A right click on the list, or the menu key: tells the warning once a run, offers the menu of the
// selected objects, and does what was chosen. Without a selection, and when one of the objects has
// gone, there is no menu.
void lstMain_MouseUp(session::Session& session);

void AddMenuEvents(session::EventTable& events);

} // namespace tarvix::menu
