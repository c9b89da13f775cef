#pragma once

#include "platform/error.h"

#include <string_view>

namespace tarvix::platform {

// Starts other programs.
class Launcher {
  public:
    virtual ~Launcher() = default;
    // Opens a file or folder (drive path) with the program the desktop has for it. Returns once
    // that program was started. 53 when the object is missing, 70 when nothing can open it.
    virtual Result<void> OpenDocument(std::string_view path) = 0;
};

} // namespace tarvix::platform
