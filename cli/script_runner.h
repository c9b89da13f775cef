#pragma once

#include "cli/script.h"
#include "results/program.h"
#include "session/scripted_prompts.h"
#include "session/user_input.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace tarvix::cli {

// Thrown when a statement can't be carried out, also from inside a routine that opened a modal form
// or yielded, so that nothing further is done. Only the front catches it.
struct ScriptStopped {
    int line = 0;
    std::string sentence;
};

// Runs the statements of a script on a program, and goes on with them inside modal forms. It must
// outlive the program's use of `prompts`.
class ScriptRunner {
  public:
    ScriptRunner(std::vector<Statement> statements, session::ScriptedPrompts& prompts,
                 std::ostream& out);

    // Queues the answers that stand before the first other statement; called before the start.
    void QueueLeadingAnswers();
    // Runs the rest. Throws ScriptStopped, and lets pass what the prompts throw.
    void Run(results::Program& program);

    // Asked before and after each statement: an interruption ends the script, so that nothing acts
    // on what was half done.
    void SetInterrupted(std::function<bool()> interrupted) {
        interrupted_ = std::move(interrupted);
    }
    // What is done with a statement that can't be carried out, in place of throwing; the rest of
    // the script is dropped.
    void SetTroubled(std::function<void(const ScriptStopped&)> troubled) {
        troubled_ = std::move(troubled);
    }
    // Whether a statement is left to do.
    bool HasMore() const { return next_ < statements_.size(); }
    // Drops what is left.
    void Drop() { next_ = statements_.size(); }
    // Whether an action left something undone, other than by the rule for duplicates.
    bool SomeFailed() const { return someFailed_; }
    // The line of the statement under work, or the last one.
    int Line() const { return line_; }

  private:
    bool RunInside(fields::Form& form);
    void RunNext();
    void CheckInterruption();
    void Stop(int line, std::string sentence);
    session::InputResult Execute(const Statement& statement);
    session::InputResult ExecuteOnControl(const Statement& statement);
    session::InputResult ClickColumn(const Statement& statement);
    session::InputResult Select(const Statement& statement);
    session::InputResult DoubleClick(const Statement& statement);
    session::InputResult RightClick(const Statement& statement);
    session::InputResult Dump(const Statement& statement);
    void ClickAfter(const Statement& statement, fields::Control& control);

    fields::Form& Top();
    std::expected<fields::Control*, std::string> FindControl(const std::string& name);
    session::InputResult CheckReachable(const fields::Control& control);
    session::Session& Session() { return program_->Session(); }

    std::vector<Statement> statements_;
    std::size_t next_ = 0;
    int line_ = 0;
    session::ScriptedPrompts& prompts_;
    std::ostream& out_;
    std::function<bool()> interrupted_ = [] { return false; };
    std::function<void(const ScriptStopped&)> troubled_;
    results::Program* program_ = nullptr;
    std::vector<fields::Form*> modal_;
    bool someFailed_ = false;
    bool running_ = false; // planned clicks are for this time only
};

} // namespace tarvix::cli
