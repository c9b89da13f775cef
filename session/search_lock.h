#pragma once

namespace tarvix::session {

struct Session;

// Disables the criteria and what starts other work, and shows `cmdStop`.
void LockForSearch(Session& session);
// Enables all of that again, but not between the searches of a batch.
void UnlockAfterSearch(Session& session);

} // namespace tarvix::session
