#pragma once

namespace tarvix::fields {
class FrmDialog;
}
namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

class OutcomeSink;

// Brings what stands in the destination box into its final form, reads the request, checks it step
// by step, confirms it, runs it and reports. A refusal leaves the window open, with the destination
// cleaned and expanded.
void OKButton_Click(session::Session& session);

// The same for the request that stands in `form`, which may be the window of another session: all
// that is shown, asked and changed is this session's. `sink`, if any, hears what became of each
// object.
void PressOk(session::Session& session, const fields::FrmDialog& form, OutcomeSink* sink);

// Closes the window and does nothing.
void CancelButton_Click(session::Session& session);

} // namespace tarvix::actions
