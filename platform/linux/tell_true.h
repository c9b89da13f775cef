#pragma once

#include <string>

namespace tarvix::platform {

// Whether a command line, run by words and not by a shell, says "true" within a second; one that
// takes longer is ended.
bool SaysTrue(const std::string& commandLine);

} // namespace tarvix::platform
