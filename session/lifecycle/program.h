#pragma once

#include "results/result_list.h"
#include "results/row_details.h"
#include "results/selection.h"
#include "session/session.h"

#include <string_view>

namespace tarvix::lifecycle {

// The whole program without a front: the session with its list, and the event table filled. A front
// makes one, starts it, raises events, and stops it.
class Program {
  public:
    Program(const platform::Platform& machine, session::PromptService& prompts);

    session::Session& Session() { return session_; }
    results::ResultList& Rows() { return rows_; }
    results::Selection& Selection() { return selection_; }

    // The load of the main window. `argument` is the one argument of the process: a folder, a file
    // or a list of locations, as drive or native path; empty for none.
    void Start(std::string_view argument);
    // The unload of the main window; also after a start that ended the program at once.
    void Stop();

  private:
    results::ResultList rows_;
    results::Selection selection_;
    session::Session session_;
    results::RowDetails details_{session_};
};

// Name and version as people see them: "Tarvix", "0.1.0".
std::string_view ProductName();
std::string_view ProductVersion();

} // namespace tarvix::lifecycle
