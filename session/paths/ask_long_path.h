#pragma once

#include <string_view>

namespace tarvix::session {

class EventTable;
struct Session;

// Decides about a text that has grown past the limit of the platform. From the searches
// ("frmSearch") it tells so, logs it and asks the search to stop. From the action window
// ("frmDialog") the user chooses, or a choice stands, and `bytPathChoice` holds it: 0, 3 and 6
// leave the object alone (6 ends the action), 1 and 4 go on with a short path.
void AskLongPath(Session& session, std::string_view oldText, std::string_view newPath,
                 std::string_view routine, std::string_view moduleName, bool creatingFile = false);

// Whether the standing choice takes the object in hand.
bool ContinuesLongPath(const Session& session);

// The buttons of frmAsk259.
void AddAskLongPathEvents(EventTable& events);

} // namespace tarvix::session
