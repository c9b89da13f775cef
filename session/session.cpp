#include "session/session.h"

#include "platform/clock.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "session/action_log.h"
#include "session/input_recorder.h"
#include "session/message_style.h"
#include "session/prompt_table.h"
#include "text/characters.h"
#include "text/format.h"

#include <fmt/core.h>

namespace tarvix::session {

namespace {

// The marks of rules and patterns, which no name holds as themselves.
constexpr std::string_view kMarks = "*?|";

std::string Carried(std::string_view path) {
    std::string carried = text::Replace(path, "*", "\uF02A");
    carried = text::Replace(carried, "?", "\uF03F");
    return text::Replace(carried, "|", "\uF07C");
}

Prompt PromptOf(PromptId id, std::string_view text = {}) {
    const PromptFacts& facts = FactsOf(id);
    return {.id = id,
            .style = facts.style,
            .title = std::string(facts.title),
            .text = std::string(text)};
}

} // namespace

Session::Session(const platform::Platform& machine, PromptService& promptService)
    : platform(machine), prompts(promptService), frmSearch(forms.frmSearch),
      frmDialog(forms.frmDialog), yielder(machine.clock) {}

Session::~Session() = default;

text::DateTime Session::Now() {
    return platform.clock.Now();
}

const std::string& Session::TimeText() {
    const text::DateTime now = Now();
    if (now != toldTime_ || toldTimeText_.empty()) {
        toldTime_ = now;
        toldTimeText_ = text::FormatDate(now, "mm/dd/yyyy hh:mm:ss");
    }
    return toldTimeText_;
}

std::string Session::Shown(std::string_view path) const {
    if (!state.platformSettings.showsNative) return platform::ForDisplay(path);
    std::string native = platform.paths.ToNative(path);
    if (native.empty() && path.find_first_of(kMarks) != path.npos) {
        native = platform.paths.ToNative(Carried(path));
    }
    return native.empty() ? platform::ForDisplay(path) : platform::NativeForDisplay(native);
}

std::string Session::Shown(const platform::PlatformError& error) const {
    if (error.path.empty()) return error.description;
    return text::Replace(error.description, platform::ForDisplay(error.path), Shown(error.path));
}

void Session::NoteLogTrouble(const platform::PlatformError& error) {
    if (state.blnLogFailed) return;
    state.blnLogFailed = true;
    state.strLogTrouble =
        fmt::format("A log of this run can't be written: {}\r\n\r\nWhat is done from here on may "
                    "not stand there.",
                    Shown(error));
}

bool Session::Raise(const fields::Control& control, std::string_view event, bool isRepeat) {
    const std::string name =
        fmt::format("{}.{}_{}", control.Owner().Name(), control.ArrayName(), event);
    return events.Raise(*this, name, {control.Index(), isRepeat});
}

PromptService& Session::Asked() {
    return standIn ? *standIn : prompts;
}

int Session::MsgBox(PromptId id, std::string_view text, std::string_view plain,
                    std::string_view verb) {
    Prompt prompt = PromptOf(id, text);
    prompt.plain = plain;
    prompt.verb = verb;
    if (state.loop.Covers(id)) return AskInLoop(prompt);
    const int answer = Asked().MsgBox(prompt);
    Noted(std::string(CaptionOf(answer)));
    return answer;
}

int Session::AskInLoop(Prompt& prompt) {
    const int error = IsOfAnError(prompt.id) ? state.lngErrNumber : 0;
    if (state.loop.IsSkipped(prompt.id, error)) return SkipAnswer(prompt.id);
    prompt.isInLoop = true;
    const int answer = Asked().MsgBox(prompt);
    Noted(std::string(CaptionOf(answer)));
    if (answer == kSkipAll) {
        state.loop.SkipAll(prompt.id, error);
        LogTimed(*this, " User selected to skip all objects with the same trouble.");
        return SkipAnswer(prompt.id);
    }
    if (answer != kStopAll) return answer;
    state.blnStopAction = true;
    LogTimed(*this, " User selected to stop the action.");
    return StopAnswer(prompt.id);
}

std::string Session::Noted(std::string answer) {
    if (recorder && !standIn) recorder->Answered(answer);
    return answer;
}

void Session::ShowModal(PromptId id) {
    fields::Form& form = *forms.Find(FactsOf(id).form);
    const fields::Control* main = form.Find("lblMain");
    const Prompt prompt{
        .id = id, .title = form.Caption, .text = main ? main->ValueText() : std::string()};
    form.Show();
    Asked().ShowModal(*this, form, prompt);
    form.Hide();
    state.strLastForm = form.Name();
}

std::string Session::PickFolder(PromptId id, std::string_view start) {
    Prompt prompt = PromptOf(id);
    prompt.folder = start;
    return Noted(Asked().PickFolder(prompt));
}

std::string Session::PickFile(PromptId id, std::string_view filters, std::string_view start) {
    Prompt prompt = PromptOf(id);
    prompt.folder = start;
    return Noted(Asked().PickFile(prompt, filters));
}

std::string Session::PickNewFile(PromptId id, const NewFilePick& pick) {
    return Noted(Asked().PickNewFile(PromptOf(id), pick));
}

std::string Session::InputBox(PromptId id, std::string_view text, std::string_view preset) {
    return Noted(Asked().InputBox(PromptOf(id, text), preset));
}

} // namespace tarvix::session
