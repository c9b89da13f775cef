#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// Opens the action window for a copy of the selection.
void cmdCopySelected_Click(session::Session& session);

// Checks the request step by step, confirms it, runs it and reports.
void OKButton_Click(session::Session& session);
void CancelButton_Click(session::Session& session);

// The action window gets ready for `strAction`; the preload at the start hides it at once.
void frmDialog_Activate(session::Session& session);

void AddActionEvents(session::EventTable& events);

} // namespace tarvix::actions
