#include "app/window_script.h"

#include "cli/script.h"
#include "cli/script_runner.h"
#include "platform/file_system.h"
#include "platform/try.h"
#include "session/prompt_id.h"
#include "session/scripted_prompts.h"

#include <fmt/core.h>

#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

namespace tarvix::app {

namespace {

using session::Prompt;
using session::PromptId;
using session::Session;

constexpr std::string_view kFilters = "Scripts (*.tarvix)|*.tarvix|All Files (*.*)|*.*|";
constexpr std::size_t kMostTold = 4000; // bytes of what a script prints

// A script that runs in a session; as long as it lives its answers come before the user's.
class WindowScript : public session::PromptService {
  public:
    WindowScript(results::Program& program, std::vector<cli::Statement> statements)
        : program_(program), user_(program.Session().prompts),
          runner_(std::move(statements), scripted_, printed_) {
        scripted_.SetPaths(program.Session().platform.paths);
        runner_.SetTroubled([this](const cli::ScriptStopped& stopped) { Note(stopped); });
        program.Session().standIn = this;
    }
    ~WindowScript() override { program_.Session().standIn = nullptr; }
    WindowScript(const WindowScript&) = delete;
    WindowScript& operator=(const WindowScript&) = delete;

    void Run() { runner_.Run(program_); }
    // Why it ended early, empty if it didn't; and what it printed.
    const std::string& Trouble() const { return trouble_; }
    std::string Printed() const { return printed_.str(); }

    int MsgBox(const Prompt& prompt) override {
        return Ask([&](PromptService& asked) { return asked.MsgBox(prompt); });
    }
    std::string InputBox(const Prompt& prompt, std::string_view preset) override {
        return Ask([&](PromptService& asked) { return asked.InputBox(prompt, preset); });
    }
    void ShowModal(Session& session, fields::Form& form, const Prompt& prompt) override {
        try {
            if (scripted_.HasQueued() || runner_.HasMore()) {
                scripted_.ShowModal(session, form, prompt);
            }
        } catch (const session::PromptUnanswered&) {
            // The script has come to its end in this window.
        } catch (const session::PromptMisanswered& wrong) {
            Note({runner_.Line(), wrong.why});
        }
        if (form.IsShown()) user_.ShowModal(session, form, prompt);
    }
    std::string PickFolder(const Prompt& prompt) override {
        return Ask([&](PromptService& asked) { return asked.PickFolder(prompt); });
    }
    std::string PickFile(const Prompt& prompt, std::string_view filters) override {
        return Ask([&](PromptService& asked) { return asked.PickFile(prompt, filters); });
    }
    std::string PickNewFile(const Prompt& prompt, const session::NewFilePick& pick) override {
        return Ask([&](PromptService& asked) { return asked.PickNewFile(prompt, pick); });
    }

  private:
    template <class Put>
    std::invoke_result_t<Put, PromptService&> Ask(const Put& put) {
        if (!scripted_.HasQueued()) return put(user_);
        try {
            return put(scripted_);
        } catch (const session::PromptMisanswered& wrong) {
            Note({runner_.Line(), wrong.why});
            return put(user_);
        }
    }
    // The first trouble ends the script.
    void Note(const cli::ScriptStopped& stopped) {
        runner_.Drop();
        if (!trouble_.empty()) return;
        trouble_ = fmt::format("The script ended at line {}: {}", stopped.line, stopped.sentence);
    }

    results::Program& program_;
    session::PromptService& user_;
    session::ScriptedPrompts scripted_;
    std::ostringstream printed_;
    cli::ScriptRunner runner_;
    std::string trouble_;
};

platform::Result<std::string> ReadWhole(platform::FileSystem& files, std::string_view path) {
    TX_TRY_ASSIGN(const auto stream, files.OpenAsTextStream(path, platform::OpenMode::kRead));
    std::string text;
    while (!stream->AtEndOfStream()) {
        TX_TRY_ASSIGN(const std::string line, stream->ReadLine());
        text += line;
        text += '\n';
    }
    return text;
}

void TellTrouble(Session& session, std::string_view sentence) {
    session.MsgBox(PromptId::kScriptTold, sentence);
}

void RunScript(results::Program& program) {
    Session& session = program.Session();
    const std::string file = session.PickFile(PromptId::kPickScript, kFilters);
    if (file.empty()) return;
    const auto text = ReadWhole(session.files(), file);
    if (!text) {
        return TellTrouble(
            session, fmt::format("The script can't be read: {}", session.Shown(text.error())));
    }
    auto statements = cli::ParseScript(*text);
    if (!statements) {
        return TellTrouble(session,
                           fmt::format("Nothing was done. Line {} of the script: {}",
                                       statements.error().line, statements.error().sentence));
    }
    session::LogTimed(session,
                      fmt::format(" User selected to run the script {}", session.Shown(file)));
    std::string told;
    std::string printed;
    {
        WindowScript script(program, std::move(*statements));
        script.Run();
        told = script.Trouble();
        printed = script.Printed().substr(0, kMostTold);
    }
    if (!told.empty() && !printed.empty()) told += "\r\n\r\n";
    told += printed;
    if (!told.empty()) return TellTrouble(session, told);
    session.frmSearch.lblStatus.Caption =
        fmt::format("The script {} was run.", session.Shown(file));
}

} // namespace

void AddScriptEvents(results::Program& program) {
    program.Session().events.On(
        "frmSearch.mnuFile_RunScript_Click",
        [&program](Session&, const session::EventArgs&) { RunScript(program); });
}

} // namespace tarvix::app
