#pragma once

#include "platform/launcher.h"

#include <string_view>
#include <sys/types.h>
#include <vector>

namespace tarvix::platform {

// Shows web pages in the desktop's default browser, one at a time, and ends what it has started
// for one where that runs by itself.
class LinuxPages {
  public:
    LinuxPages() = default;
    ~LinuxPages();
    LinuxPages(const LinuxPages&) = delete;
    LinuxPages& operator=(const LinuxPages&) = delete;

    // As Launcher::DefaultBrowser, OpenPage, ClosePage and IsPageClosing.
    static PageBrowser Default();
    Result<void> Open(std::string_view address);
    bool Close();
    bool IsClosing();

  private:
    void WaitForLeft();

    // Children that weren't waited for; 0 for none.
    pid_t browser_ = 0;
    pid_t closing_ = 0;       // was asked to end
    std::vector<pid_t> left_; // asked before, and not waited for any longer
};

} // namespace tarvix::platform
