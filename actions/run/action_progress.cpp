#include "actions/run/action_progress.h"

#include "platform/clock.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string>

namespace tarvix::actions {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kShowEvery = kSecond / 10;

std::string Bytes(double bytes) {
    constexpr std::array<const char*, 5> kUnits{" bytes", " kB", " MB", " GB", " TB"};
    std::size_t unit = 0;
    for (; bytes >= 1000 && unit + 1 < kUnits.size(); ++unit) {
        bytes /= 1000;
    }
    const auto tenths = static_cast<std::int64_t>(bytes * 10);
    std::string text = text::Format(tenths / 10, "#,##0");
    if (unit > 0 && bytes < 100) text += fmt::format(".{}", tenths % 10);
    return fmt::format("{}{}", text, kUnits[unit]);
}

std::string Duration(std::int64_t seconds) {
    return fmt::format("{}:{:02}", seconds / 60, seconds % 60);
}

} // namespace

ActionProgress::ActionProgress(session::Session& session, std::int64_t objects, std::int64_t bytes)
    : session_(session), objects_(objects), bytes_(bytes),
      started_(session.platform.clock.Steady()), due_(started_) {
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
    Show(false);
    session_.Yield();
    return true;
}

void ActionProgress::Step() {
    ++objectsDone_;
    bytesBefore_ += bytesInHand_;
    bytesInHand_ = 0;
    Show(objectsDone_ == objects_);
}

void ActionProgress::Show(bool now) {
    const std::int64_t ticks = session_.platform.clock.Steady();
    if (!now && ticks < due_) return;
    due_ = ticks + kShowEvery;
    auto& form = session_.frmDialog;
    const std::int64_t done = bytesBefore_ + bytesInHand_;
    form.prgBytes.Value = bytes_ > 0 ? std::min(done, bytes_) : objectsDone_;
    std::string told =
        fmt::format("{} of {} {}", text::Format(objectsDone_, "#,##0"),
                    text::Format(objects_, "#,##0"), objects_ == 1 ? "object" : "objects");
    const double seconds = static_cast<double>(ticks - started_) / kSecond;
    if (done > 0) told += fmt::format(" - {}", Bytes(static_cast<double>(done)));
    if (bytes_ > 0 && done > 0 && seconds > 0.5) {
        const double speed = static_cast<double>(done) / seconds;
        told += fmt::format(" of {} - {}/s", Bytes(static_cast<double>(bytes_)), Bytes(speed));
        if (bytes_ > done) {
            const auto left = static_cast<std::int64_t>((bytes_ - done) / speed);
            told += fmt::format(" - {} left", Duration(left));
        }
    }
    form.lblProgress.Caption = told;
}

} // namespace tarvix::actions
