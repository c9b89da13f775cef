#pragma once

#include "cli/host.h"
#include "results/program.h"
#include "session/prompt_service.h"

#include <functional>
#include <string>

namespace tarvix::cli {

struct ProgramRun {
    // What is done with the started program; gives the exit code.
    std::function<int(results::Program&)> act;
    // What is left to do with its rows once it was unloaded, unless the request was wrong or a
    // prompt had no answer. Takes and gives the exit code.
    std::function<int(results::Program&, int)> afterUnload;
    // How a prompt is answered, for the sentence about one that had no answer.
    std::string answerWay = "give --answer";
    // The line of the script at which it went wrong; none outside scripts.
    std::function<int()> line;
};

// Starts the program, acts, and unloads it as by its close button. A prompt that finds no answer,
// or a wrong one, ends the act at once; its sentence goes to stderr. Gives the exit code.
int RunProgram(Host& host, const platform::Platform& machine, session::PromptService& prompts,
               const ProgramRun& run);

// Ticks the timer of the main window as long as it is on, up to the first repeat of a show of
// pages or an interruption; a show that is on then is ended.
void RunTimer(Host& host, session::Session& session);

// While it lives, long loops press their Stop when the process is interrupted, and a terminal shows
// on its last line how far the work has come.
class Watch {
  public:
    Watch(Host& host, session::Session& session);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

  private:
    void Look();
    void Stop();
    void Show();
    bool IsActing() const;
    std::string Text() const;

    Host& host_;
    session::Session& session_;
    bool stopped_ = false;
};

} // namespace tarvix::cli
