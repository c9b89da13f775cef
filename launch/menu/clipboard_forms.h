#pragma once

#include "platform/clipboard.h"

#include <span>
#include <string>
#include <vector>

namespace tarvix::menu {

// What every file manager and text box takes for these objects (native paths), to be copied or
// moved to where it is pasted.
std::vector<platform::ClipboardForm> ObjectForms(std::span<const std::string> paths, bool isCut);

// Their paths as a text, one a line.
std::vector<platform::ClipboardForm> PathForms(std::span<const std::string> paths);

} // namespace tarvix::menu
