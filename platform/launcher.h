#pragma once

#include "platform/error.h"

#include <string>
#include <string_view>

namespace tarvix::platform {

// Starts other programs.
class Launcher {
  public:
    virtual ~Launcher() = default;
    // Opens a file or folder (drive path) with the program the desktop has for it. Returns once
    // that program was started. 53 when the object is missing, 70 when nothing can open it.
    virtual Result<void> OpenDocument(std::string_view path) = 0;
    // Opens a file (drive path) with a command, its path behind the command's own arguments.
    // Returns once that program was started. 53 when the file is missing, 70 when the command can't
    // start.
    virtual Result<void> OpenWith(std::string_view command, std::string_view path) = 0;
    // Asks the program that shows the document to close it; 5 where no program can be asked, which
    // is so unless a desktop says otherwise.
    virtual Result<void> CloseDocument(std::string_view path) {
        return Failure(kInvalidCall, std::string(path) + " can't be closed from here.");
    }
};

} // namespace tarvix::platform
