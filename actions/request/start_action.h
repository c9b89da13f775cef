#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// Each opens the action window for the selection, after the warnings that its action has, and sees
// to what follows when the window has closed.
void cmdCopySelected_Click(session::Session& session);
void cmdMoveSelected_Click(session::Session& session);
void cmdRenameSelected_Click(session::Session& session);

// These buttons, those of the action window, and what other routines raise to open it.
void AddActionEvents(session::EventTable& events);

} // namespace tarvix::actions
