#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// Gives the green rows of the loaded playlist their new names, then sends the selected ones to the
// recycle bin; the playlist itself is never changed. Nothing is ever replaced, and only the very
// files that were loaded are touched. Each change goes to the action log; a failure leaves its file
// as it was, and the next one follows.
void cmdEditPlayList_Click(session::Session& session);

// Shows in frmPreview what that would do now.
void cmdPreviewPlayList_Click(session::Session& session);

} // namespace tarvix::generate
