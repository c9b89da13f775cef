#include "actions/request/preview_prompts.h"

#include "session/message_style.h"
#include "session/session.h"

namespace tarvix::actions {

int PreviewPrompts::MsgBox(std::string_view text, int style, std::string_view /*title*/) {
    constexpr int kButtons = 15;
    if ((style & kButtons) == session::kOkCancel) return session::kOk;
    lastTold_ = text;
    return session::SafeAnswer(style);
}

void PreviewPrompts::ShowModal(session::Session& session, fields::Form& form) {
    auto& state = session.state;
    if (&form == &session.forms.frmAsk) {
        asked_.duplicate = true;
        state.action.bytAskAnswer = session::kAskSkip;
    } else if (&form == &session.forms.frmAsk259) {
        asked_.longPath = true;
        state.bytPathChoice = session::kPathSkip;
    } else if (&form == &session.forms.frmOverrideDialog) {
        asked_.isProtected = true;
        state.action.bytOverrideAnswer = session::kOverrideNo;
    } else if (&form == &session.forms.frmOverrideRecycleFail) {
        state.action.bytRecycleAnswer = session::kOverrideNo;
    }
    form.Hide();
}

} // namespace tarvix::actions
