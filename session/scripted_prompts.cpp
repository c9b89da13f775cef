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

#include <fmt/core.h>

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

std::size_t ScriptedPrompts::Note(const Prompt& prompt, PromptKind kind, std::string form) {
    records_.push_back({prompt, kind, std::move(form), ""});
    return records_.size() - 1;
}

std::optional<std::string> ScriptedPrompts::Take(std::size_t record) {
    if (queue_.empty()) {
        if (fallback_ == Fallback::kThrow) throw PromptUnanswered{records_[record]};
        return std::nullopt;
    }
    std::string answer = std::move(queue_.front());
    queue_.pop_front();
    return answer;
}

std::string ScriptedPrompts::TakeText(std::size_t record) {
    return records_[record].answer = Take(record).value_or("");
}

std::string ScriptedPrompts::TakePath(std::size_t record) {
    std::string path = TakeText(record);
    if (paths_) records_[record].answer = path = paths_->ToDrive(path);
    return path;
}

void ScriptedPrompts::Misanswered(std::size_t record, std::string why) const {
    throw PromptMisanswered{records_[record], std::move(why)};
}

int ScriptedPrompts::MsgBox(const Prompt& prompt) {
    const std::size_t record = Note(prompt, PromptKind::kMessage);
    const auto given = Take(record);
    const auto answer = given ? AnswerOf(*given) : SafeAnswer(prompt.style);
    const bool isForAll = prompt.isInLoop && (answer == kSkipAll || answer == kStopAll);
    if (!answer || (!isForAll && std::ranges::count(ButtonsOf(prompt.style), *answer) == 0)) {
        Misanswered(record, fmt::format("The prompt has no button \"{}\". Its buttons are: {}.",
                                        given.value_or(""), ButtonNames(prompt.style)));
    }
    records_[record].answer = CaptionOf(*answer);
    return *answer;
}

std::string ScriptedPrompts::InputBox(const Prompt& prompt, std::string_view /*preset*/) {
    return TakeText(Note(prompt, PromptKind::kInput));
}

std::string ScriptedPrompts::PickFolder(const Prompt& prompt) {
    return TakePath(Note(prompt, PromptKind::kFolder));
}

std::string ScriptedPrompts::PickFile(const Prompt& prompt, std::string_view /*filters*/) {
    return TakePath(Note(prompt, PromptKind::kFile));
}

std::string ScriptedPrompts::PickNewFile(const Prompt& prompt, const NewFilePick& /*pick*/) {
    return TakePath(Note(prompt, PromptKind::kNewFile));
}

void ScriptedPrompts::ShowModal(Session& session, fields::Form& form, const Prompt& prompt) {
    const std::size_t record = Note(prompt, PromptKind::kForm, form.Name());
    while (form.IsShown()) {
        if (HasQueued()) {
            AnswerForm(session, form, record);
        } else if (runner_) {
            if (!runner_(session, form)) throw PromptUnanswered{records_[record]};
        } else if (fallback_ == Fallback::kThrow) {
            throw PromptUnanswered{records_[record]};
        } else {
            // Its events may put prompts of their own.
            std::string answer = CloseUnattended(session, form);
            records_[record].answer = std::move(answer);
        }
    }
}

void ScriptedPrompts::AnswerForm(Session& session, fields::Form& form, std::size_t record) {
    const std::string answer = *Take(record);
    records_[record].answer = answer;
    InputResult done;
    if (fields::Control* control = FindNamedOrCaptioned(form, answer)) {
        records_[record].answer = control->Name();
        done = UserClick(session, *control);
    } else if (const auto dates = ReadDates(answer);
               dates && &form == &session.forms.frmSelectDate) {
        done = EnterDates(session, session.forms.frmSelectDate, *dates);
    } else {
        done =
            std::unexpected(fmt::format("{} has no control or button \"{}\". Its buttons are: {}.",
                                        form.Name(), answer, ButtonsOn(form)));
    }
    if (!done) Misanswered(record, done.error());
}

} // namespace tarvix::session
