#pragma once

#include "platform/file_system.h"
#include "platform/launcher.h"

#include <string>
#include <utility>
#include <vector>

namespace tarvix::platform {

// Starts nothing and records what it was asked for.
class MemoryLauncher : public Launcher {
  public:
    explicit MemoryLauncher(FileSystem& files) : files_(files) {}

    Result<void> OpenDocument(std::string_view path) override {
        const auto facts = files_.Facts(path);
        if (!facts) {
            return std::unexpected(
                PlatformError{kFileNotFound, facts.error().description, facts.error().path});
        }
        if (refusal != 0) {
            const std::string refused(path);
            return std::unexpected(PlatformError{refusal, refused + " can't be opened.", refused});
        }
        opened.emplace_back(path);
        return {};
    }

    Result<void> OpenWith(std::string_view command, std::string_view path) override {
        auto started = OpenDocument(path);
        if (started) commands.emplace_back(command);
        return started;
    }

    Result<void> CloseDocument(std::string_view path) override {
        if (!canClose) return Launcher::CloseDocument(path);
        closed.emplace_back(path);
        return {};
    }

    PageBrowser DefaultBrowser() override { return browser; }
    Result<void> OpenPage(std::string_view address, PageSize size) override {
        if (refusal != 0) return Failure(refusal, std::string(address) + " can't be shown.");
        pages.emplace_back(address);
        sizes.push_back(size);
        isPageOpen = browser.endsPages;
        return {};
    }
    bool ClosePage() override {
        pages.emplace_back("close");
        return std::exchange(isPageOpen, false);
    }
    bool IsPageClosing() override { return closingLooks > 0 && closingLooks-- > 0; }

    PageBrowser browser{.name = "Pages", .endsPages = true, .takesSize = true};
    std::vector<std::string> pages; // addresses and "close", in order
    std::vector<PageSize> sizes;
    bool isPageOpen = false;
    int closingLooks = 0;            // how often a page that was closed is still found about to end
    std::vector<std::string> opened; // documents, in order
    std::vector<std::string> commands; // of those opened with one
    std::vector<std::string> closed;
    bool canClose = false;
    int refusal = 0; // the error that every opening gives, if not 0

  private:
    FileSystem& files_;
};

} // namespace tarvix::platform
