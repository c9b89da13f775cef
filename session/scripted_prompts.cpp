#include "session/scripted_prompts.h"

#include "fields/controls.h"
#include "fields/prompt_forms.h"
#include "platform/native_paths.h"
#include "session/message_style.h"
#include "session/session.h"
#include "session/unattended_prompts.h"
#include "session/user_input.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/dates.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvix::session {

namespace {

std::string ButtonNames(int style) {
    std::string names;
    for (const int button : ButtonsOf(style)) {
        names.append(names.empty() ? "" : ", ").append(CaptionOf(button));
    }
    return names;
}

bool IsButton(const fields::Control& control) {
    return control.Kind() == fields::ControlKind::kCommandButton && control.Visible;
}

bool HasCaption(const fields::Control& control, std::string_view caption) {
    return text::EqualNoCase(text::Replace(control.CaptionText(), "&", ""),
                             text::Replace(caption, "&", ""));
}

fields::Control* FindNamedOrCaptioned(const fields::Form& form, std::string_view answer) {
    if (fields::Control* named = form.Find(answer)) return named;
    for (fields::Control* control : form.Controls()) {
        if (IsButton(*control) && HasCaption(*control, answer)) return control;
    }
    return nullptr;
}

std::string ButtonsOn(const fields::Form& form) {
    std::string names;
    for (const fields::Control* control : form.Controls()) {
        if (!IsButton(*control)) continue;
        names.append(names.empty() ? "" : ", ").append(control->Name());
    }
    return names;
}

struct DateAnswer {
    std::string_view start;
    std::string_view end; // empty for one date
};

// "DATE" or "DATE thru DATE"; nothing for any other text.
std::optional<DateAnswer> ReadDates(std::string_view answer) {
    constexpr std::string_view kThru = " thru ";
    const std::size_t split = text::Lower(answer).find(kThru);
    const DateAnswer dates{answer.substr(0, split), split == answer.npos
                                                        ? std::string_view{}
                                                        : answer.substr(split + kThru.size())};
    if (!text::IsDate(dates.start)) return std::nullopt;
    if (!dates.end.empty() && !text::IsDate(dates.end)) return std::nullopt;
    return dates;
}

InputResult EnterDates(Session& session, fields::FrmSelectDate& form, const DateAnswer& dates) {
    const std::array<std::pair<fields::DatePicker*, std::string_view>, 4> entries{
        {{&form.dtpStartDate, dates.start},
         {&form.dtpStartTime, dates.start},
         {&form.dtpEndDate, dates.end},
         {&form.dtpEndTime, dates.end}}};
    for (const auto& [picker, date] : entries) {
        if (date.empty()) continue;
        if (auto done = UserSet(session, *picker, date); !done) return done;
    }
    return UserClick(session, form.cmdOK);
}

} // namespace

std::size_t ScriptedPrompts::Note(PromptRecord record) {
    records_.push_back(std::move(record));
    return records_.size() - 1;
}

std::optional<std::string> ScriptedPrompts::Take(std::size_t prompt) {
    if (queue_.empty()) {
        if (fallback_ == Fallback::kThrow) throw PromptUnanswered{records_[prompt]};
        return std::nullopt;
    }
    std::string answer = std::move(queue_.front());
    queue_.pop_front();
    return answer;
}

std::string ScriptedPrompts::TakeText(std::size_t prompt) {
    return records_[prompt].answer = Take(prompt).value_or("");
}

std::string ScriptedPrompts::TakePath(std::size_t prompt) {
    std::string path = TakeText(prompt);
    if (paths_) records_[prompt].answer = path = paths_->ToDrive(path);
    return path;
}

void ScriptedPrompts::Misanswered(std::size_t prompt, std::string why) const {
    throw PromptMisanswered{records_[prompt], std::move(why)};
}

int ScriptedPrompts::MsgBox(std::string_view text, int style, std::string_view title) {
    const std::size_t prompt =
        Note({.style = style, .title = std::string(title), .text = std::string(text)});
    const auto given = Take(prompt);
    const auto answer = given ? AnswerOf(*given) : SafeAnswer(style);
    if (!answer || std::ranges::count(ButtonsOf(style), *answer) == 0) {
        Misanswered(prompt, "The prompt has no button \"" + given.value_or("") +
                                "\". Its buttons are: " + ButtonNames(style) + ".");
    }
    records_[prompt].answer = CaptionOf(*answer);
    return *answer;
}

std::string ScriptedPrompts::InputBox(std::string_view text, std::string_view title,
                                      std::string_view /*preset*/) {
    return TakeText(
        Note({.kind = PromptKind::kInput, .title = std::string(title), .text = std::string(text)}));
}

std::string ScriptedPrompts::PickFolder(std::string_view title) {
    return TakePath(Note({.kind = PromptKind::kFolder, .title = std::string(title)}));
}

std::string ScriptedPrompts::PickFile(std::string_view title, std::string_view /*filters*/) {
    return TakePath(Note({.kind = PromptKind::kFile, .title = std::string(title)}));
}

void ScriptedPrompts::ShowModal(Session& session, fields::Form& form) {
    const std::size_t prompt = Note(RecordOf(form));
    while (form.IsShown()) {
        if (HasQueued()) {
            AnswerForm(session, form, prompt);
        } else if (runner_) {
            if (!runner_(session, form)) throw PromptUnanswered{records_[prompt]};
        } else if (fallback_ == Fallback::kThrow) {
            throw PromptUnanswered{records_[prompt]};
        } else {
            records_[prompt].answer = CloseUnattended(session, form);
        }
    }
}

void ScriptedPrompts::AnswerForm(Session& session, fields::Form& form, std::size_t prompt) {
    const std::string answer = *Take(prompt);
    records_[prompt].answer = answer;
    InputResult done;
    if (fields::Control* control = FindNamedOrCaptioned(form, answer)) {
        records_[prompt].answer = control->Name();
        done = UserClick(session, *control);
    } else if (const auto dates = ReadDates(answer);
               dates && &form == &session.forms.frmSelectDate) {
        done = EnterDates(session, session.forms.frmSelectDate, *dates);
    } else {
        done = std::unexpected(form.Name() + " has no control or button \"" + answer +
                               "\". Its buttons are: " + ButtonsOn(form) + ".");
    }
    if (!done) Misanswered(prompt, done.error());
}

} // namespace tarvix::session
