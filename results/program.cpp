#include "results/program.h"

#include "results/sorting.h"
#include "session/lifecycle/startup.h"
#include "session/lifecycle_events.h"

namespace tarvix::results {

Program::Program(const platform::Platform& machine, session::PromptService& prompts,
                 void (*fillEvents)(session::EventTable& events))
    : session_(machine, prompts) {
    session_.rows = &rows_;
    session_.selection = &selection_;
    session_.outcomes = &outcomes_;
    rows_.UseDetails(details_);
    fillEvents(session_.events);
}

void Program::Start(std::string_view argument) {
    lifecycle::frmSearch_Load(session_, argument);
}

void Program::Stop() {
    if (!session_.state.blnEnded) lifecycle::frmSearch_Unload(session_);
}

void AddListEvents(session::EventTable& events) {
    events.On("frmSearch.cmdSelectAll_Click", cmdSelectAll_Click);
    events.On("frmSearch.cmdSelectAllDirs_Click", cmdSelectAllDirs_Click);
    events.On("frmSearch.cmdSelectAllFiles_Click", cmdSelectAllFiles_Click);
    events.On("frmSearch.cmdSelectNone_Click", cmdSelectNone_Click);
    events.On("frmSearch.cmdSelectReverse_Click", cmdSelectReverse_Click);
    events.On("frmSearch.cmdDoVersionSort_Click", cmdDoVersionSort_Click);
    events.On("frmSearch.mnuTools_NameVersionSort_Click", cmdDoVersionSort_Click);
    events.On(std::string(lifecycle::kClearList), ClearList);
    events.On(std::string(lifecycle::kArrangeRows), RearrangeRows);
    events.On(std::string(lifecycle::kGroupRows), RegroupRows);
    events.On("frmSearch.lstMain_ColumnClick",
              [](session::Session& session, const session::EventArgs& args) {
                  lstMain_ColumnClick(session, static_cast<Column>(args.index));
              });
    events.On("frmSearch.lstMain_ItemClick",
              [](session::Session& session, const session::EventArgs& args) {
                  lstMain_ItemClick(session, static_cast<std::size_t>(args.index));
              });
}

} // namespace tarvix::results
