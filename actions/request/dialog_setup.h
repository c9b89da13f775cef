#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// The action window gets ready for `strAction`: what it offers, and the choices that fall away. An
// automated run then presses OK by itself. The preload at the start hides it at once.
void frmDialog_Activate(session::Session& session);

// The same before the window opens: the folder structure starts anew.
void OpenDialog(session::Session& session);

// Empties the box for the destination of what the action before left there for another use, as a
// list of names is no folder to copy to; before an action that proposes nothing of its own.
void ClearForeignDestination(session::Session& session);

// While it is busy the request can't be changed.
void ShowBusy(session::Session& session, bool busy);

// Busy no more and set up again, the window still open.
void BackToWindow(session::Session& session);

} // namespace tarvix::actions
