#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Checks the request step by step, confirms it, runs it and reports. A refusal leaves the window
// open, with the destination cleaned and expanded.
void OKButton_Click(session::Session& session);

// Closes the window and does nothing.
void CancelButton_Click(session::Session& session);

// The steps that bring what stands in the destination box into its final form. False stops with
// the window open.
bool CleanDestinationBox(session::Session& session);

} // namespace tarvix::actions
