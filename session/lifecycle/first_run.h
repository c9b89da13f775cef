#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::lifecycle {

// The session is a first run while no "Search For" history file exists: shows the notice, offers
// the help texts, and makes that file.
void FirstRunCheck(session::Session& session);

} // namespace tarvix::lifecycle
