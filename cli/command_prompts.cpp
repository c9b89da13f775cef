#include "cli/command_prompts.h"

#include "cli/first_run_answers.h"
#include "cli/messages.h"
#include "fields/prompt_forms.h"
#include "session/message_style.h"
#include "session/session.h"
#include "session/user_input.h"

namespace tarvix::cli {

namespace {

// Whether an object failed and the question is only whether to try it again.
bool AsksToRetry(int style, std::string_view title) {
    constexpr int kButtons = 15;
    return (style & kButtons) == session::kRetryCancel || title == "File not found" ||
           title == "Bad File or Folder Name";
}

} // namespace

int CommandPrompts::MsgBox(std::string_view text, int style, std::string_view title) {
    if (!begun_) return FirstRunAnswers(inner_).MsgBox(text, style, title);
    if (session::ButtonsOf(style).size() == 1) {
        Tell(host_, text);
        return session::SafeAnswer(style);
    }
    if (confirmed_ && IsConfirmation(text, style)) return session::ButtonsOf(style).front();
    if (confirmed_ && AsksToRetry(style, title) && !inner_.HasQueued()) {
        Tell(host_, text);
        return session::SafeAnswer(style);
    }
    return inner_.MsgBox(text, style, title);
}

void CommandPrompts::AnswerForm(const fields::Form& form, const fields::Control& button) {
    formButtons_[form.Name()] = button.Name();
}

std::string CommandPrompts::InputBox(std::string_view text, std::string_view title,
                                     std::string_view preset) {
    return inner_.InputBox(text, title, preset);
}

std::string CommandPrompts::PickFolder(std::string_view title) {
    return inner_.PickFolder(title);
}

std::string CommandPrompts::PickFile(std::string_view title, std::string_view filters) {
    return inner_.PickFile(title, filters);
}

void CommandPrompts::ShowModal(session::Session& session, fields::Form& form) {
    if (auto* notice = dynamic_cast<fields::NoticeForm*>(&form)) {
        if (begun_) Tell(host_, notice->lblMain.Caption.Get());
        ++skippedObjects_;
        (void)session::UserClick(session, notice->cmdOK);
        form.Hide();
    } else if (&form == &session.frmDialog && filler_) {
        filler_(session);
    } else if (const auto button = formButtons_.find(form.Name()); button != formButtons_.end()) {
        (void)session::UserClick(session, *form.Find(button->second));
        form.Hide();
    } else {
        inner_.ShowModal(session, form);
    }
}

} // namespace tarvix::cli
