#include "batch/page_show.h"

#include "platform/native_paths.h"
#include "platform/try.h"
#include "session/errors.h"
#include "session/session.h"

#include <fmt/core.h>

#include <cmath>
#include <string_view>
#include <utility>

namespace tarvix::batch {

namespace {

using platform::Result;
using session::Session;

constexpr int kTicks = 10;        // of a page
constexpr int kShortTurn = 9;     // the next tick opens a page
constexpr double kTickPart = 100; // milliseconds of a tick for each second of a page
// While a browser ends.
constexpr int kWaitInterval = 20; // milliseconds
constexpr int kMostWaits = 100;   // two seconds
constexpr std::string_view kRoutine = "Timer1_Timer";

// What the browser gets for a line: paths in native form, all else as it stands.
std::string AddressOf(const Session& session, const std::string& line) {
    const bool isDrive = line.starts_with("\\\\") ||
                         (line.size() > 2 && std::string_view(line).substr(1, 2) == ":\\");
    if (!isDrive && !line.starts_with("~/")) return line;
    const auto& paths = session.platform.paths;
    const std::string native = paths.ToNative(paths.ToDrive(line));
    return native.empty() ? line : native;
}

int TickInterval(const PageShowRequest& request) {
    return static_cast<int>(std::lround(request.seconds * kTickPart));
}

} // namespace

Result<bool> PageShow::Start(Session& session, const PageShowRequest& request) {
    auto reader = std::make_unique<ListReader>(session.files(), request.list);
    TX_TRY(reader->Restart());
    request_ = request;
    reader_ = std::move(reader);
    opened_ = 0;
    error_.reset();
    ReadNext();
    const bool isEmpty = strWebLine_ == kEndMark || strWebLine_ == kRepeatMark;
    auto opened = isEmpty ? Result<void>() : Open(session);
    if (isEmpty || !opened) {
        reader_ = nullptr;
        if (!opened) return std::unexpected(std::move(opened.error()));
        return false;
    }
    session.state.blnWebRepeating = session.state.blnPageNotOpened = false;
    ReadNext();
    error_.reset(); // a list of one page needs no mark
    lngWebTicks_ = 0;
    waits_ = 0;
    auto& form = session.frmSearch;
    form.Timer1.Interval = TickInterval(request);
    form.Timer1.Enabled = true;
    form.State = fields::WindowState::kMinimized;
    return true;
}

void PageShow::Tick(Session& session) {
    if (!IsOn()) return;
    if (waits_ > 0) return WaitForBrowser(session);
    if (++lngWebTicks_ != kTicks) return;
    if (session.platform.launcher.ClosePage()) return WaitForBrowser(session);
    GoOn(session);
}

// One that is about to end would take the next page with it.
void PageShow::WaitForBrowser(Session& session) {
    auto& timer = session.frmSearch.Timer1;
    if (session.platform.launcher.IsPageClosing() && waits_ < kMostWaits) {
        ++waits_;
        timer.Interval = kWaitInterval;
        return;
    }
    waits_ = 0;
    timer.Interval = TickInterval(request_);
    GoOn(session);
}

void PageShow::GoOn(Session& session) {
    if (strWebLine_ == kRepeatMark) return TurnOver(session);
    if (strWebLine_ == kEndMark) return End(session);
    OpenNext(session);
}

void PageShow::TurnOver(Session& session) {
    session.state.blnWebRepeating = true;
    if (auto opened = reader_->Restart(); !opened) {
        Fail(std::move(opened.error()));
    } else {
        ReadNext();
    }
    lngWebTicks_ = kShortTurn;
}

void PageShow::OpenNext(Session& session) {
    if (auto opened = Open(session); !opened) {
        session.state.blnPageNotOpened = true;
        session::LogTimed(session, fmt::format(" {}", opened.error().description));
    }
    ReadNext();
    lngWebTicks_ = 0;
}

Result<void> PageShow::Open(Session& session) {
    TX_TRY(session.platform.launcher.OpenPage(AddressOf(session, strWebLine_), request_.size));
    ++opened_;
    return {};
}

// Blank lines are passed over.
void PageShow::ReadNext() {
    do {
        auto line = reader_->Next();
        if (!line) return Fail(std::move(line.error()));
        strWebLine_ = std::move(*line);
    } while (strWebLine_.find_first_not_of(" \t") == std::string::npos);
}

// The page that shows has its time; then the show is over.
void PageShow::Fail(platform::PlatformError error) {
    error_ = std::move(error);
    strWebLine_ = kEndMark;
}

void PageShow::End(Session& session) {
    if (!IsOn()) return;
    auto& form = session.frmSearch;
    reader_ = nullptr;
    lngWebTicks_ = waits_ = 0;
    form.Timer1.Enabled = false;
    form.State = fields::WindowState::kNormal;
    session.platform.launcher.ClosePage();
    if (!error_) return;
    session::TellUnexpected(session, *std::exchange(error_, {}), kRoutine, request_.list,
                            "frmSearch");
}

} // namespace tarvix::batch
