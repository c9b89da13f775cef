#pragma once

#include "generate/list_request.h"

#include <optional>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::generate {

// Asks for a numeric increment in frmNumbers, which shows the lines as they would be. Nothing when
// the user cancelled it.
std::optional<NumberPlan> AskNumbersInForm(session::Session& session);

// The buttons of frmNumbers, and its lines, which follow what is typed.
void AddNumberFormEvents(session::EventTable& events);

} // namespace tarvix::generate
