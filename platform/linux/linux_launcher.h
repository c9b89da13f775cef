#pragma once

#include "platform/applications.h"
#include "platform/launcher.h"
#include "platform/linux/linux_pages.h"

namespace tarvix::platform {

// Opens documents with the programs that the desktop has for them.
class LinuxLauncher : public Launcher {
  public:
    // Lives no longer than the applications.
    explicit LinuxLauncher(Applications& applications) : applications_(applications) {}
    Result<void> OpenDocument(std::string_view path) override;
    Result<void> OpenWith(std::string_view command, std::string_view path) override;
    PageBrowser DefaultBrowser() override { return LinuxPages::Default(); }
    Result<void> OpenPage(std::string_view address, PageSize /*size*/) override {
        return pages_.Open(address);
    }
    bool ClosePage() override { return pages_.Close(); }
    bool IsPageClosing() override { return pages_.IsClosing(); }

  private:
    Applications& applications_;
    LinuxPages pages_;
};

// For fronts without a desktop: starts nothing (70) but the pages that were asked for.
class NullLauncher : public Launcher {
  public:
    Result<void> OpenDocument(std::string_view path) override;
    Result<void> OpenWith(std::string_view command, std::string_view path) override;
    PageBrowser DefaultBrowser() override { return LinuxPages::Default(); }
    Result<void> OpenPage(std::string_view address, PageSize /*size*/) override {
        return pages_.Open(address);
    }
    bool ClosePage() override { return pages_.Close(); }
    bool IsPageClosing() override { return pages_.IsClosing(); }

  private:
    LinuxPages pages_;
};

} // namespace tarvix::platform
