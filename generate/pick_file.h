#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// Asks where the file of the action in force is to go; the answer goes into the destination box.
void PickNewFile(session::Session& session);

} // namespace tarvix::generate
