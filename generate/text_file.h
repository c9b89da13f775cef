#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// Writes the file that the action window asks for, and tells what became of it. After a failure
// `blnErrorOccurred` is set, so that the window stays open, and the old file stands as it was.
void CopyToTextFile(session::Session& session);

} // namespace tarvix::generate
