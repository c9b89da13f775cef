#pragma once

namespace tarvix::session {

struct Session;

// Disables the criteria and what starts other work, and shows `cmdStop`.
void LockForSearch(Session& session);
// Enables all of that again.
void UnlockAfterSearch(Session& session);

} // namespace tarvix::session
