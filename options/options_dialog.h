#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::options {

// Fills the window from the options in force. Most of it can't be used while a search runs.
void LoadOptionsIntoForm(session::Session& session);
// Takes what the window has into the options, shows it in the main window and saves the options
// file, and this machine's settings if one changed. False, told and with nothing taken in, when a
// value is none.
bool SaveOptionsFromForm(session::Session& session);

// Opens the window, and sees to the list when it has closed.
void mnuOptions_Click(session::Session& session);

// Every event of the window, and what opens it.
void AddOptionsEvents(session::EventTable& events);

} // namespace tarvix::options
