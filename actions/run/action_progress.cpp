#include "actions/run/action_progress.h"

#include "actions/run/figures.h"
#include "platform/clock.h"
#include "session/session.h"
#include "text/format.h"
#include "text/readable_size.h"

#include <fmt/core.h>

#include <algorithm>
#include <string>

namespace tarvix::actions {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kShowEvery = kSecond / 10;
constexpr int kMuchSlower = 10;

std::string SizeOf(std::int64_t bytes) {
    return text::ReadableSize(static_cast<std::uint64_t>(bytes));
}

} // namespace

ActionProgress::ActionProgress(session::Session& session, std::int64_t objects, std::int64_t bytes)
    : session_(session), objects_(objects), bytes_(bytes),
      started_(session.platform.clock.Steady()), seen_(started_), due_(started_) {
    auto& form = session.frmDialog;
    form.prgBytes.Max = bytes > 0 ? bytes : objects;
    form.prgBytes.Value = 0;
    form.lblProgress.Caption = "";
    form.lblProgress.Visible = form.prgBytes.Visible = true;
}

ActionProgress::~ActionProgress() {
    session_.frmDialog.lblProgress.Visible = session_.frmDialog.prgBytes.Visible = false;
}

bool ActionProgress::InFile(const platform::CopyProgress& progress) {
    bytesInHand_ = static_cast<std::int64_t>(progress.bytesDone);
    bytesOfHand_ = static_cast<std::int64_t>(progress.bytesTotal);
    Show(false);
    session_.Yield();
    return !session_.state.blnStopNow;
}

void ActionProgress::Step() {
    ++objectsDone_;
    bytesBefore_ += bytesInHand_;
    bytesInHand_ = bytesOfHand_ = 0;
    Show(objectsDone_ == objects_);
}

// While a question waits for its answer nothing goes on, or much less than before.
void ActionProgress::LeaveOutPause(std::int64_t ticks) {
    const std::int64_t gap = ticks - seen_;
    const std::int64_t done = bytesBefore_ + bytesInHand_;
    if (gap > kSecond) {
        const auto before = static_cast<double>(seen_ - started_);
        const double speed = static_cast<double>(done - seenBytes_) / static_cast<double>(gap);
        const bool isSlow =
            before > 0 && speed * kMuchSlower < static_cast<double>(seenBytes_) / before;
        if (done == seenBytes_ || isSlow) started_ += gap;
    }
    seen_ = ticks;
    seenBytes_ = done;
}

void ActionProgress::Show(bool now) {
    const std::int64_t ticks = session_.platform.clock.Steady();
    LeaveOutPause(ticks);
    if (!now && ticks < due_) return;
    due_ = ticks + kShowEvery;
    auto& form = session_.frmDialog;
    const std::int64_t done = bytesBefore_ + bytesInHand_;
    form.prgBytes.Value = bytes_ > 0 ? std::min(done, bytes_) : objectsDone_;
    std::string told =
        fmt::format("{} of {} {}", text::Format(objectsDone_, "#,##0"),
                    text::Format(objects_, "#,##0"), objects_ == 1 ? "object" : "objects");
    const double seconds = static_cast<double>(ticks - started_) / kSecond;
    if (bytes_ > 0 && done > 0) told += fmt::format(" - {}", SizeOf(done));
    // A move copies only what goes to another disk.
    if (bytes_ == 0 && bytesOfHand_ > 0) {
        told += fmt::format(" - {} of {} of this one", SizeOf(bytesInHand_), SizeOf(bytesOfHand_));
    } else if (bytes_ == 0 && bytesInHand_ > 0) {
        told += fmt::format(" - {} of this one", SizeOf(bytesInHand_));
    }
    if (bytes_ > 0 && done > 0 && seconds > 0.5) {
        const double speed = static_cast<double>(done) / seconds;
        told +=
            fmt::format(" of {} - {}/s", SizeOf(bytes_), SizeOf(static_cast<std::int64_t>(speed)));
        if (bytes_ > done) {
            const auto left = static_cast<std::int64_t>((bytes_ - done) / speed);
            told += fmt::format(" - {} left", TimeLeftText(left));
        }
    }
    form.lblProgress.Caption = told;
}

} // namespace tarvix::actions
