#include "session/session.h"

#include "platform/clock.h"
#include "text/format.h"

namespace tarvix::session {

Session::Session(const platform::Platform& machine, PromptService& promptService)
    : platform(machine), prompts(promptService), frmSearch(forms.frmSearch),
      frmDialog(forms.frmDialog), yielder(machine.clock) {}

Session::~Session() = default;

text::DateTime Session::Now() {
    return platform.clock.Now();
}

const std::string& Session::TimeText() {
    const text::DateTime now = Now();
    if (now != toldTime_ || toldTimeText_.empty()) {
        toldTime_ = now;
        toldTimeText_ = text::FormatDate(now, "mm/dd/yyyy hh:mm:ss");
    }
    return toldTimeText_;
}

bool Session::Raise(const fields::Control& control, std::string_view event, bool isRepeat) {
    std::string name = control.Owner().Name();
    name.append(".").append(control.ArrayName()).append("_").append(event);
    return events.Raise(*this, name, {control.Index(), isRepeat});
}

void Session::ShowModal(fields::Form& form) {
    form.Show();
    prompts.ShowModal(*this, form);
    form.Hide();
    state.strLastForm = form.Name();
}

} // namespace tarvix::session
