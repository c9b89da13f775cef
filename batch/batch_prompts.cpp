#include "batch/batch_prompts.h"

#include "fields/form.h"
#include "session/message_style.h"
#include "session/prompt_table.h"
#include "session/session.h"
#include "session/unattended_prompts.h"

#include <fmt/core.h>

namespace tarvix::batch {

using session::Prompt;

BatchPrompts::BatchPrompts(session::Session& session)
    : session_(session), before_(session.standIn) {
    session.standIn = this;
}

BatchPrompts::~BatchPrompts() {
    session_.standIn = before_;
}

void BatchPrompts::Log(const Prompt& prompt, std::string_view answer) {
    const std::string_view told = prompt.text.empty() ? prompt.title : prompt.text;
    if (session::FactsOf(prompt.id).role == session::PromptRole::kNotice) {
        session::LogTimed(session_, fmt::format(" {}", told));
        return;
    }
    ++answered_;
    session::LogTimed(
        session_, answer.empty() ? fmt::format(" {}\r\nNobody was asked, since a batch runs.", told)
                                 : fmt::format(" {}\r\nNobody was asked, since a batch runs: {}.",
                                               told, answer));
}

int BatchPrompts::MsgBox(const Prompt& prompt) {
    const int answer = session::SafeAnswer(prompt.style);
    Log(prompt, session::CaptionOf(answer));
    return answer;
}

std::string BatchPrompts::InputBox(const Prompt& prompt, std::string_view /*preset*/) {
    Log(prompt, "");
    return {};
}

void BatchPrompts::ShowModal(session::Session& session, fields::Form& form, const Prompt& prompt) {
    Log(prompt, "");
    session::CloseUnattended(session, form);
}

std::string BatchPrompts::PickFolder(const Prompt& prompt) {
    Log(prompt, "");
    return {};
}

std::string BatchPrompts::PickFile(const Prompt& prompt, std::string_view /*filters*/) {
    Log(prompt, "");
    return {};
}

std::string BatchPrompts::PickNewFile(const Prompt& prompt, const session::NewFilePick& /*pick*/) {
    Log(prompt, "");
    return {};
}

} // namespace tarvix::batch
