#pragma once

#include <string>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

struct ActionRequest;
struct ActionRun;
struct Clash;
struct Outcome;

// Asks what to do about the object that stands at the destination, unless an answer stands, and
// does it. A cancel ends the run.
Outcome AskAboutDuplicate(session::Session& session, ActionRun& run, const Clash& clash);

// "'_' at end.": what a renamed duplicate's name gets, and where.
std::string RenameRuleText(const ActionRequest& request);

// The buttons of frmAsk.
void AddAskEvents(session::EventTable& events);

} // namespace tarvix::actions
