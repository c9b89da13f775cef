#pragma once

#include "platform/applications.h"

namespace tarvix::platform {

// Starts a program as a process of its own session, which nobody waits for: no descriptor of ours
// but /dev/null as 0 to 2, no signal blocked or ignored, and in its folder, or `home` where that
// can't be entered. Returns once it runs; 70 when it can't be started, which names why.
Result<void> StartProcess(const PlannedProcess& process, const std::string& home);

// The native path of a program as a shell finds it; empty when there is none.
std::string FindProgram(const std::string& name);

} // namespace tarvix::platform
