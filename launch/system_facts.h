#pragma once

#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::launch {

// What is true of this machine, in lines: the program, the system, its memory, the user's desktop,
// the drives with their room, and the programs that open things. Empty where nothing of the system
// can be read.
std::string SystemFacts(session::Session& session);

// Tells them.
void StartSysInfo(session::Session& session);

} // namespace tarvix::launch
