#include "session/unattended_prompts.h"

#include "fields/control.h"
#include "session/message_style.h"
#include "session/session.h"
#include "session/user_input.h"

#include <utility>

namespace tarvix::session {

int UnattendedPrompts::MsgBox(const Prompt& prompt) {
    const int answer = SafeAnswer(prompt.style);
    records_.push_back({prompt, PromptKind::kMessage, "", std::string(CaptionOf(answer))});
    return answer;
}

std::string UnattendedPrompts::InputBox(const Prompt& prompt, std::string_view /*preset*/) {
    records_.push_back({prompt, PromptKind::kInput, "", ""});
    return {};
}

std::string UnattendedPrompts::PickFolder(const Prompt& prompt) {
    records_.push_back({prompt, PromptKind::kFolder, "", ""});
    return {};
}

std::string UnattendedPrompts::PickFile(const Prompt& prompt, std::string_view /*filters*/) {
    records_.push_back({prompt, PromptKind::kFile, "", ""});
    return {};
}

std::string UnattendedPrompts::PickNewFile(const Prompt& prompt, const NewFilePick& /*pick*/) {
    records_.push_back({prompt, PromptKind::kNewFile, "", ""});
    return {};
}

void UnattendedPrompts::ShowModal(Session& session, fields::Form& form, const Prompt& prompt) {
    const std::size_t index = records_.size();
    records_.push_back({prompt, PromptKind::kForm, form.Name(), ""});
    std::string answer = CloseUnattended(session, form);
    records_[index].answer = std::move(answer);
}

std::string CloseUnattended(Session& session, fields::Form& form) {
    for (fields::Control* button : form.WaysOut()) {
        if (!UserClick(session, *button)) continue;
        form.Hide();
        return button->Name();
    }
    form.Hide();
    return {};
}

} // namespace tarvix::session
