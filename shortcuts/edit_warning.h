#pragma once

#include <string>

namespace tarvix::shortcuts {

// The two texts of the window before the mode, in words that hold on this machine.
std::string WarningTop();
std::string WarningBottom();

} // namespace tarvix::shortcuts
