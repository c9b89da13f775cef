#include "actions/request/preview_prompts.h"

#include "actions/place/action_run.h"
#include "session/message_style.h"
#include "session/prompt_table.h"
#include "session/session.h"

namespace tarvix::actions {

using session::PromptId;
using session::PromptRole;

int PreviewPrompts::MsgBox(const session::Prompt& prompt) {
    const PromptRole role = session::FactsOf(prompt.id).role;
    if (role == PromptRole::kConfirmation || role == PromptRole::kGoOn) {
        return session::ButtonsOf(prompt.style).front();
    }
    lastTold_ = prompt.text;
    return session::SafeAnswer(prompt.style);
}

void PreviewPrompts::ShowModal(session::Session& session, fields::Form& form,
                               const session::Prompt& prompt) {
    switch (prompt.id) {
    case PromptId::kDuplicate:
        asked_.duplicate = true;
        session.forms.frmAsk.Answer = kAskSkip;
        break;
    case PromptId::kAskLongPath:
        asked_.longPath = true;
        session.state.bytPathChoice = session::kPathSkip;
        break;
    case PromptId::kOverrideProtected:
        asked_.isProtected = true;
        session.forms.frmOverrideDialog.Answer = kOverrideNo;
        break;
    case PromptId::kOverrideRecycleFailure:
        session.forms.frmOverrideRecycleFail.Answer = kOverrideNo;
        break;
    default:
        break;
    }
    form.Hide();
}

} // namespace tarvix::actions
