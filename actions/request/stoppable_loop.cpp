#include "actions/request/stoppable_loop.h"

#include "platform/clock.h"
#include "session/session.h"
#include "text/format.h"

#include <utility>

namespace tarvix::actions {

namespace {

constexpr std::int64_t kFirstShown = 300'000'000; // ns
constexpr std::int64_t kShownAgain = 50'000'000;

std::string Thousands(std::size_t count) {
    return text::Format(static_cast<std::int64_t>(count), "#,##0");
}

} // namespace

StopButton::StopButton(session::Session& session) : session_(session) {
    session.state.blnRecycling = true;
    session.state.blnStopAction = false;
    session.frmSearch.cmdStop.Visible = true;
}

StopButton::~StopButton() {
    session_.state.blnRecycling = false;
    session_.frmSearch.cmdStop.Visible = false;
    session_.forms.frmProgress.Hide();
}

LoopShown::LoopShown(session::Session& session, std::size_t total, Words words)
    : session_(session), total_(total), words_(std::move(words)),
      due_(session.platform.clock.Steady() + kFirstShown) {}

bool LoopShown::Step(std::size_t done) {
    session_.Yield();
    if (session_.platform.clock.Steady() >= due_) Show(done);
    return !session_.state.blnStopAction;
}

void LoopShown::Show(std::size_t done) {
    auto& form = session_.forms.frmProgress;
    form.lblMain.Caption = words_(Thousands(done), Thousands(total_));
    form.prgMain.Max = static_cast<long long>(total_);
    form.prgMain.Value = static_cast<long long>(done);
    form.Show();
    due_ = session_.platform.clock.Steady() + kShownAgain;
}

} // namespace tarvix::actions
