#include "actions/run/action_progress.h"

#include "platform/clock.h"
#include "session/session.h"
#include "text/format.h"

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
    if (unit > 0 && bytes < 100) text += "." + std::to_string(tenths % 10);
    return text + kUnits[unit];
}

std::string Duration(std::int64_t seconds) {
    const std::string minutes = std::to_string(seconds / 60);
    const std::string rest = std::to_string(seconds % 60);
    return minutes + (rest.size() == 1 ? ":0" : ":") + rest;
}

} // namespace

ActionProgress::ActionProgress(session::Session& session, std::int64_t objects, std::int64_t bytes)
    : session_(session), objects_(objects), bytes_(bytes),
      started_(session.platform.clock.Steady()), due_(started_) {
    session.state.action.progress = this;
    auto& form = session.frmDialog;
    form.prgBytes.Max = bytes > 0 ? bytes : objects;
    form.prgBytes.Value = 0;
    form.lblProgress.Caption = "";
    form.lblProgress.Visible = form.prgBytes.Visible = true;
}

ActionProgress::~ActionProgress() {
    session_.state.action.progress = nullptr;
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
    std::string told = text::Format(objectsDone_, "#,##0") + " of " +
                       text::Format(objects_, "#,##0") + (objects_ == 1 ? " object" : " objects");
    const double seconds = static_cast<double>(ticks - started_) / kSecond;
    if (done > 0) told += " - " + Bytes(static_cast<double>(done));
    if (bytes_ > 0 && done > 0 && seconds > 0.5) {
        const double speed = static_cast<double>(done) / seconds;
        told += " of " + Bytes(static_cast<double>(bytes_)) + " - " + Bytes(speed) + "/s";
        if (bytes_ > done) {
            told += " - " + Duration(static_cast<std::int64_t>((bytes_ - done) / speed)) + " left";
        }
    }
    form.lblProgress.Caption = told;
}

platform::CopyObserver ObserverOf(session::Session& session) {
    return [&session](const platform::CopyProgress& progress) {
        if (session.state.action.progress) return session.state.action.progress->InFile(progress);
        session.Yield();
        return true;
    };
}

} // namespace tarvix::actions
