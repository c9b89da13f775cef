#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::lifecycle {

// The texts that lie beside the program, opened with what the desktop has for them. One that can't
// be opened is told on the status line.
void OpenHelp(session::Session& session);
void OpenGeneralInformation(session::Session& session);
void OpenAdvancedFunctions(session::Session& session);
void OpenVersionChanges(session::Session& session);

// The entries of the help menu.
void AddHelpEvents(session::EventTable& events);

} // namespace tarvix::lifecycle
