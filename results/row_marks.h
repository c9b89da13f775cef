#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// What the rows show of objects that were cut, or are gone since an action. The next search begins
// without marks.

// Marks the selected rows as cut and all others not.
void MarkCut(session::Session& session);
// No row is cut any more.
void ClearCut(session::Session& session);
// Marks those of the selected rows as gone, and unselects them, at whose paths nothing stands any
// more. The counters are the caller's to count anew.
void MarkGone(session::Session& session);

} // namespace tarvix::results
