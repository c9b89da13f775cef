#include "cli/run_program.h"

#include "cli/messages.h"
#include "cli/script_runner.h"
#include "platform/clock.h"
#include "search/left_out.h"
#include "search/unread.h"
#include "session/ending_prompts.h"
#include "session/scripted_prompts.h"
#include "session/user_input.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <ostream>

namespace tarvix::cli {

namespace {

// What an interruption waits for.
constexpr const char* kWaitsForEnd =
    "Stopping in order, with the logs closed. Ctrl+C again stops at once.";
constexpr const char* kWaitsForObject =
    "Stopping when the object in hand is done, so that nothing is left by half. Ctrl+C again stops "
    "at once.";
constexpr const char* kWaitsForFolder =
    "Stopping when the folder in hand is read. Ctrl+C again stops at once.";

void ComplainAt(Host& host, int line, const std::string& sentence) {
    Complain(host, line > 0 ? fmt::format("line {}: {}", line, sentence) : sentence);
}

int Guarded(Host& host, const ProgramRun& run, const std::function<int()>& act) {
    const auto line = [&run] { return run.line ? run.line() : 0; };
    try {
        return act();
    } catch (const session::PromptUnanswered& unanswered) {
        ComplainAt(host, line(), HowToAnswer(unanswered.prompt, run.answerWay));
        return kUnanswered;
    } catch (const session::PromptMisanswered& wrong) {
        ComplainAt(host, line(), fmt::format("{} - {}", OnOneLine(wrong.prompt.text), wrong.why));
        return kBadRequest;
    } catch (const ScriptStopped& stopped) {
        ComplainAt(host, stopped.line, stopped.sentence);
        return kBadRequest;
    }
}

} // namespace

int RunProgram(Host& host, const platform::Platform& machine, session::PromptService& prompts,
               const ProgramRun& run) {
    host.sayWhenInterrupted(kWaitsForEnd);
    host.stopInOrder();
    session::EndingPrompts untilSignal(
        prompts, [&host] { return host.interrupted() != 0; },
        [&host](std::string_view text) { Tell(host, text); });
    results::Program program(machine, untilSignal, host.fillEvents);
    bool leftOut = false;
    program.Session().events.On(std::string(search::kUnreadTold),
                                [&](session::Session& session, const session::EventArgs&) {
                                    TellUnread(host, session);
                                    leftOut = true;
                                });
    // A script reads the button's caption where it wants to know.
    if (!run.line) {
        program.Session().events.On(std::string(search::kLeftOutTold),
                                    [&](session::Session& session, const session::EventArgs&) {
                                        TellLeftOut(host, session.state.leftOut);
                                    });
    }
    bool started = false;
    int code = Guarded(host, run, [&] {
        program.Start("");
        started = true;
        return program.Session().state.blnEnded ? kSomeFailed : run.act(program);
    });
    // A program that never came up has no options of its own to save.
    if (!started) return code;
    const int unloaded = Guarded(host, run, [&] {
        program.Stop();
        return int{kDone};
    });
    const auto& state = program.Session().state;
    if (state.blnLogFailed && state.options.blnAutoMode) {
        Complain(host, "The logs of this run could not be written to their end.");
    }
    if (code == kDone) code = leftOut || state.blnLogFailed ? kSomeFailed : unloaded;
    const bool isDone = code == kDone || code == kSomeFailed;
    return isDone && run.afterUnload ? run.afterUnload(program, code) : code;
}

void RunTimer(Host& host, session::Session& session) {
    constexpr std::int64_t kNanoseconds = 1'000'000;
    auto& clock = session.platform.clock;
    const auto& timer = session.frmSearch.Timer1;
    const auto goesOn = [&] { return timer.Enabled.Get() && host.interrupted() == 0; };
    while (goesOn() && !session.state.blnWebRepeating) {
        const std::int64_t due = clock.Steady() + timer.Interval * kNanoseconds;
        for (std::int64_t now = clock.Steady(); now < due && goesOn(); now = clock.Steady())
            clock.Sleep((due - now) / kNanoseconds + 1);
        if (goesOn()) session.Raise(timer, "Timer");
    }
    if (timer.Enabled) session.Raise(session.frmSearch.mnuTools_BrowserUseText, "Click");
}

Watch::Watch(Host& host, session::Session& session) : host_(host), session_(session) {
    session_.yielder.SetPump([this] { Look(); });
}

void Watch::Look() {
    if (host_.interrupted() != 0 && !stopped_) Stop();
    host_.sayWhenInterrupted(IsActing() ? kWaitsForObject : kWaitsForFolder);
    if (host_.errIsTerminal) Show();
}

void Watch::Stop() {
    auto& dialog = session_.frmDialog;
    fields::CommandButton& stop = dialog.IsShown() ? dialog.cmdStop : session_.frmSearch.cmdStop;
    stopped_ = session::UserClick(session_, stop).has_value();
}

Watch::~Watch() {
    session_.yielder.SetPump({});
    host_.sayWhenInterrupted(kWaitsForEnd);
    ClearProgress(host_);
}

bool Watch::IsActing() const {
    return session_.frmDialog.IsShown() || session_.state.blnRecycling;
}

std::string Watch::Text() const {
    const auto& dialog = session_.frmDialog;
    const auto& search = session_.frmSearch;
    const auto& progress = session_.forms.frmProgress;
    if (dialog.IsShown()) {
        const std::string told = dialog.lblProgress.Visible ? dialog.lblProgress.Caption.Get() : "";
        return told.empty() ? told : fmt::format("{}: {}", session_.state.strAction, told);
    }
    if (progress.IsShown()) return progress.lblMain.Caption.Get();
    return fmt::format("Found {} of {} files, {} of {} folders",
                       search.lblNumOfFilesFound.ValueText(),
                       search.lblNumOfFilesAttrib.ValueText(), search.lblNumOfDirsFound.ValueText(),
                       search.lblNumOfDirsAttrib.ValueText());
}

// A line that is longer than the terminal could not be taken off it again.
void Watch::Show() {
    const auto most = static_cast<std::size_t>(std::max(1, host_.terminalWidth() - 1));
    std::string text(text::Left(OnOneLine(Text()), most));
    if (text == host_.progress) return;
    host_.out << std::flush;
    ClearProgress(host_);
    host_.progress = std::move(text);
    host_.err << host_.progress << std::flush;
}

} // namespace tarvix::cli
