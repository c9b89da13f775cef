#include "cli/command_prompts.h"

#include "cli/first_run_answers.h"
#include "cli/messages.h"
#include "session/message_style.h"
#include "session/prompt_table.h"
#include "session/session.h"
#include "session/unattended_prompts.h"
#include "session/user_input.h"

namespace tarvix::cli {

using session::PromptId;
using session::PromptRole;

int CommandPrompts::MsgBox(const session::Prompt& prompt) {
    const PromptRole role = session::FactsOf(prompt.id).role;
    if (role == PromptRole::kFirstRun) return FirstRunAnswers(inner_, host_).MsgBox(prompt);
    const int safe = session::SafeAnswer(prompt.style);
    const auto known = messages_.find(prompt.id);
    if (known != messages_.end() && known->second) {
        return session::ButtonsOf(prompt.style).front();
    }
    // What a start can't read is left alone, and the request doesn't depend on it.
    const bool isOfStart = !begun_ && role == PromptRole::kTryAgain && !inner_.HasQueued();
    if (isOfStart || session::ButtonsOf(prompt.style).size() == 1) {
        Tell(host_, prompt.text);
        return safe;
    }
    if (confirmed_ && role == PromptRole::kConfirmation) {
        return session::ButtonsOf(prompt.style).front();
    }
    if (known != messages_.end()) {
        Tell(host_, prompt.text);
        return safe;
    }
    if (confirmed_ && role == PromptRole::kTryAgain && !inner_.HasQueued()) {
        Tell(host_, prompt.text);
        return safe;
    }
    return inner_.MsgBox(prompt);
}

void CommandPrompts::AnswerMessage(PromptId message, bool affirms) {
    messages_[message] = affirms;
}

void CommandPrompts::AnswerForm(PromptId form, const fields::Control& button) {
    formButtons_[form] = button.Name();
}

std::string CommandPrompts::InputBox(const session::Prompt& prompt, std::string_view preset) {
    if (const auto input = inputs_.find(prompt.id); input != inputs_.end()) return input->second;
    return inner_.InputBox(prompt, preset);
}

std::string CommandPrompts::PickFolder(const session::Prompt& prompt) {
    if (const auto input = inputs_.find(prompt.id); input != inputs_.end()) return input->second;
    return inner_.PickFolder(prompt);
}

std::string CommandPrompts::PickFile(const session::Prompt& prompt, std::string_view filters) {
    if (const auto input = inputs_.find(prompt.id); input != inputs_.end()) return input->second;
    return inner_.PickFile(prompt, filters);
}

std::string CommandPrompts::PickNewFile(const session::Prompt& prompt,
                                        const session::NewFilePick& pick) {
    return inner_.PickNewFile(prompt, pick);
}

void CommandPrompts::ShowModal(session::Session& session, fields::Form& form,
                               const session::Prompt& prompt) {
    if (session::FactsOf(prompt.id).role == PromptRole::kNotice) {
        if (begun_) Tell(host_, prompt.text);
        ++skippedObjects_;
        (void)session::CloseUnattended(session, form);
    } else if (prompt.id == PromptId::kActionWindow && filler_) {
        filler_(session);
    } else if (const auto button = formButtons_.find(prompt.id); button != formButtons_.end()) {
        (void)session::UserClick(session, *form.Find(button->second));
        form.Hide();
    } else {
        inner_.ShowModal(session, form, prompt);
    }
}

} // namespace tarvix::cli
