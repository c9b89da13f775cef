#include "session/unattended_prompts.h"

#include "fields/control.h"
#include "session/message_style.h"
#include "session/session.h"
#include "session/user_input.h"

#include <utility>

namespace tarvix::session {

int UnattendedPrompts::MsgBox(std::string_view text, int style, std::string_view title) {
    const int answer = SafeAnswer(style);
    records_.push_back({.style = style,
                        .title = std::string(title),
                        .text = std::string(text),
                        .answer = std::string(CaptionOf(answer))});
    return answer;
}

std::string UnattendedPrompts::InputBox(std::string_view text, std::string_view title,
                                        std::string_view /*preset*/) {
    records_.push_back(
        {.kind = PromptKind::kInput, .title = std::string(title), .text = std::string(text)});
    return {};
}

std::string UnattendedPrompts::PickFolder(std::string_view title) {
    records_.push_back({.kind = PromptKind::kFolder, .title = std::string(title)});
    return {};
}

std::string UnattendedPrompts::PickFile(std::string_view title, std::string_view /*filters*/) {
    records_.push_back({.kind = PromptKind::kFile, .title = std::string(title)});
    return {};
}

void UnattendedPrompts::ShowModal(Session& session, fields::Form& form) {
    const std::size_t prompt = records_.size();
    records_.push_back(RecordOf(form));
    std::string answer = CloseUnattended(session, form);
    records_[prompt].answer = std::move(answer);
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
