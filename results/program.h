#pragma once

#include "results/outcome_list.h"
#include "results/result_list.h"
#include "results/row_details.h"
#include "results/selection.h"
#include "session/session.h"

#include <string_view>

namespace tarvix::results {

// The whole program without a front: a session with its list. A front makes one, starts it, raises
// events, and stops it.
class Program {
  public:
    // `fillEvents` puts the routines of all subsystems into the event table.
    Program(const platform::Platform& machine, session::PromptService& prompts,
            void (*fillEvents)(session::EventTable& events));

    // They live as long as the program.
    session::Session& Session() { return session_; }
    ResultList& Rows() { return rows_; }
    results::Selection& Selection() { return selection_; }
    OutcomeList& Outcomes() { return outcomes_; }

    // The load of the main window. `argument` is the one argument of the process: a folder, a file
    // or a list of locations, as drive or native path; empty for none.
    void Start(std::string_view argument);
    // The unload of the main window; also after a start that ended the program at once.
    void Stop();

  private:
    ResultList rows_;
    results::Selection selection_;
    OutcomeList outcomes_;
    session::Session session_;
    RowDetails details_{session_};
};

// The events of the list: selecting, sorting, clearing.
void AddListEvents(session::EventTable& events);

} // namespace tarvix::results
