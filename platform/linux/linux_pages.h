#pragma once

#include "platform/launcher.h"

#include <string_view>
#include <sys/types.h>

namespace tarvix::platform {

// Shows web pages in the desktop's default browser, one at a time, and ends what it has started
// for one where that runs by itself.
class LinuxPages {
  public:
    LinuxPages() = default;
    ~LinuxPages();
    LinuxPages(const LinuxPages&) = delete;
    LinuxPages& operator=(const LinuxPages&) = delete;

    // As Launcher::DefaultBrowser, OpenPage and ClosePage.
    static PageBrowser Default();
    Result<void> Open(std::string_view address);
    bool Close();

  private:
    pid_t browser_ = 0; // a child that wasn't waited for; 0 for none
};

} // namespace tarvix::platform
