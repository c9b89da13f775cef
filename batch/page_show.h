#pragma once

#include "batch/list_file.h"
#include "platform/launcher.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::batch {

// A show of web pages, one after the other.
struct PageShowRequest {
    std::string list;   // of addresses, a drive path
    double seconds = 0; // of each page, from 1 to 655
    platform::PageSize size = platform::PageSize::kNormal;
};

// Shows the pages of a list in turn, driven by `Timer1`: ten ticks are the time of one page. A list
// that ends without a mark ends the show, which is told at its end.
class PageShow {
  public:
    // Opens the first page and starts the timer. False when the list holds no address. The errors
    // of opening and reading a text file; 70 when no page can be shown. Then nothing has begun.
    platform::Result<bool> Start(session::Session& session, const PageShowRequest& request);
    // One tick of the timer.
    void Tick(session::Session& session);
    // Stops the timer, closes the page and brings the main window back.
    void End(session::Session& session);
    bool IsOn() const { return reader_ != nullptr; }
    // Pages that were opened since the last start.
    std::int64_t Opened() const { return opened_; }

  private:
    // What ends a page: the browser gets a short time to go, then the next line has its turn.
    void WaitForBrowser(session::Session& session);
    void GoOn(session::Session& session);
    void TurnOver(session::Session& session);
    void OpenNext(session::Session& session);
    platform::Result<void> Open(session::Session& session);
    void ReadNext();
    void Fail(platform::PlatformError error);

    PageShowRequest request_;
    std::unique_ptr<ListReader> reader_;
    std::string strWebLine_; // the next address, or a mark
    std::int64_t opened_ = 0;
    int lngWebTicks_ = 0; // since the last page
    int waits_ = 0;       // ticks since the browser was asked to end; 0 while it isn't waited for
    std::optional<platform::PlatformError> error_;
};

} // namespace tarvix::batch
