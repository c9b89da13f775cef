#include "actions/request/preview_prompts.h"

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
    auto& state = session.state;
    switch (prompt.id) {
    case PromptId::kDuplicate:
        asked_.duplicate = true;
        state.action.bytAskAnswer = session::kAskSkip;
        break;
    case PromptId::kAskLongPath:
        asked_.longPath = true;
        state.bytPathChoice = session::kPathSkip;
        break;
    case PromptId::kOverrideProtected:
        asked_.isProtected = true;
        state.action.bytOverrideAnswer = session::kOverrideNo;
        break;
    case PromptId::kOverrideRecycleFailure:
        state.action.bytRecycleAnswer = session::kOverrideNo;
        break;
    default:
        break;
    }
    form.Hide();
}

} // namespace tarvix::actions
