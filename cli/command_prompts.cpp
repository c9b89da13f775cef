#include "cli/command_prompts.h"

#include "cli/first_run_answers.h"
#include "cli/messages.h"
#include "session/message_style.h"
#include "session/prompt_table.h"
#include "session/session.h"
#include "session/unattended_prompts.h"
#include "session/user_input.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tarvix::cli {

using session::PromptId;
using session::PromptRole;

namespace {

// What is told in the place of a question that nobody is asked.
struct Note {
    PromptId prompt;
    std::string_view sentence;
};
constexpr std::array kNotes{
    Note{PromptId::kStringsOverlap,
         "Note: the patterns overlap, so an object may match several of them."},
};

} // namespace

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
        TellFailure(prompt);
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
        TellFailure(prompt);
        return safe;
    }
    if (neverAsks_ && begun_ && !inner_.HasQueued()) {
        TellUnasked(prompt, safe);
        return safe;
    }
    return inner_.MsgBox(prompt);
}

void CommandPrompts::TellFailure(const session::Prompt& prompt) {
    const bool isOfMany = session::FactsOf(prompt.id).role == PromptRole::kTryAgain ||
                          prompt.id == PromptId::kPathNotFound;
    if (!isOfMany || host_.verbose) return Tell(host_, prompt.text);
    const auto [known, isFirst] = repeated_.try_emplace(prompt.id, 0);
    isFirst ? Tell(host_, prompt.text) : void(++known->second);
}

void CommandPrompts::TellRepeated() {
    for (const auto& [id, count] : std::exchange(repeated_, {})) {
        if (count == 0) continue;
        Complain(host_, fmt::format("{} more failed in the same way ({}); --verbose tells each.",
                                    count, session::FactsOf(id).title));
    }
}

void CommandPrompts::TellUnasked(const session::Prompt& prompt, int answer) {
    const auto known = std::ranges::find(kNotes, prompt.id, &Note::prompt);
    if (known != kNotes.end()) return Complain(host_, known->sentence);
    Complain(host_, fmt::format("{} - Answered with {}.", OnOneLine(prompt.text),
                                session::CaptionOf(answer)));
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
