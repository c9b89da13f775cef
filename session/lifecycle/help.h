#pragma once

#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::lifecycle {

// Shows one page of the help, whose file (drive path) is the event's; whoever has windows stands
// behind it.
constexpr std::string_view kShowHelp = "frmSearch.ShowHelp";

// The texts that lie beside the program, in the front's own window or, where it has none, with what
// the desktop has for them. One that can't be opened is told on the status line.
void OpenHelp(session::Session& session);
void OpenGeneralInformation(session::Session& session);
void OpenAdvancedFunctions(session::Session& session);
void OpenVersionChanges(session::Session& session);
void OpenHotKeyCodes(session::Session& session);

// The entries of the help menu.
void AddHelpEvents(session::EventTable& events);

} // namespace tarvix::lifecycle
