#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::options {

// Beside the setting of a program, "txtEditor", its form has "lblFoundEditor", which tells what
// stands for it as it is typed, and "cmdTestEditor", which starts that. Made when they are shown
// for the first time.
void ShowTools(session::Session& session);

// The events of these controls.
void AddToolEvents(session::EventTable& events);

} // namespace tarvix::options
