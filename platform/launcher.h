#pragma once

#include "platform/error.h"

#include <fmt/core.h>

#include <string>
#include <string_view>

namespace tarvix::platform {

// How the window of a page is to stand, where a browser can be told.
enum class PageSize { kNormal = 1, kMinimized = 2, kMaximized = 3 };

// The program that shows pages, as things stand.
struct PageBrowser {
    std::string name;       // as the desktop has it; empty when there is none
    bool endsPages = false; // a page gets a process of its own, which `ClosePage` can end
    bool takesSize = false;
};

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
        return Failure(kInvalidCall, fmt::format("{} can't be closed from here.", path));
    }

    // What `OpenPage` would use.
    virtual PageBrowser DefaultBrowser() { return {}; }
    // Shows an address, given to the desktop's default browser as it stands (a path in native
    // form). Returns once that was started; 70 when nothing can show pages.
    virtual Result<void> OpenPage(std::string_view address, PageSize /*size*/) {
        return Failure(kPermissionDenied,
                       fmt::format("Nothing could be started to show {}.", address));
    }
    // Asks the browser that the last page was opened with to end, if it was started for that and
    // still runs by itself; waits for nothing. False when there is none, which leaves all alone.
    virtual bool ClosePage() { return false; }
    // Whether what `ClosePage` asked last is still about to end.
    virtual bool IsPageClosing() { return false; }
};

} // namespace tarvix::platform
