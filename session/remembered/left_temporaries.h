#pragma once

namespace tarvix::session {

struct Session;

// Takes away what runs that were killed while they saved left in the data folder, and logs it:
// copies without a name, and "TX*.tmp" files older than a minute, since another copy of the program
// may be saving at this moment. A folder that can't be read or written is left as it is.
void RemoveLeftTemporaries(Session& session);

} // namespace tarvix::session
