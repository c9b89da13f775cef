#pragma once

#include <string>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

struct Outcome;

// Asks what to do about the object that stands at `strDestination`, unless an answer stands, and
// does it. False when the user cancels what is left of the action.
bool AskAboutDuplicate(session::Session& session, Outcome& outcome);

// "'_' at end.": what a renamed duplicate's name gets, and where.
std::string RenameRuleText(const session::Session& session);

void AddAskEvents(session::EventTable& events);

} // namespace tarvix::actions
