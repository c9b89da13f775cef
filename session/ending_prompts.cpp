#include "session/ending_prompts.h"

namespace tarvix::session {

PromptService& EndingPrompts::ServiceFor(const Prompt& prompt) {
    if (!isEnding_()) return inner_;
    if (tell_ && !prompt.text.empty()) tell_(prompt.text);
    return unattended_;
}

int EndingPrompts::MsgBox(const Prompt& prompt) {
    return ServiceFor(prompt).MsgBox(prompt);
}

std::string EndingPrompts::InputBox(const Prompt& prompt, std::string_view preset) {
    return ServiceFor(prompt).InputBox(prompt, preset);
}

void EndingPrompts::ShowModal(Session& session, fields::Form& form, const Prompt& prompt) {
    ServiceFor(prompt).ShowModal(session, form, prompt);
}

std::string EndingPrompts::PickFolder(const Prompt& prompt) {
    return ServiceFor(prompt).PickFolder(prompt);
}

std::string EndingPrompts::PickFile(const Prompt& prompt, std::string_view filters) {
    return ServiceFor(prompt).PickFile(prompt, filters);
}

std::string EndingPrompts::PickNewFile(const Prompt& prompt, const NewFilePick& pick) {
    return ServiceFor(prompt).PickNewFile(prompt, pick);
}

} // namespace tarvix::session
