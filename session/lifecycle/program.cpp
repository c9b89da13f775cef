#include "session/lifecycle/program.h"

#include "actions/request/start_action.h"
#include "results/sorting.h"
#include "search/request.h"
#include "session/lifecycle/help.h"
#include "session/lifecycle/startup.h"
#include "session/option_menu.h"
#include "session/paths/ask_long_path.h"
#include "session/text_viewer.h"

namespace tarvix::lifecycle {

namespace {

void AddListEvents(session::EventTable& events) {
    events.On("frmSearch.cmdSelectAll_Click", results::cmdSelectAll_Click);
    events.On("frmSearch.cmdSelectAllDirs_Click", results::cmdSelectAllDirs_Click);
    events.On("frmSearch.cmdSelectAllFiles_Click", results::cmdSelectAllFiles_Click);
    events.On("frmSearch.cmdSelectNone_Click", results::cmdSelectNone_Click);
    events.On("frmSearch.cmdSelectReverse_Click", results::cmdSelectReverse_Click);
    events.On("frmSearch.cmdDoVersionSort_Click", results::cmdDoVersionSort_Click);
    events.On("frmSearch.mnuTools_NameVersionSort_Click", results::cmdDoVersionSort_Click);
    events.On("frmSearch.lstMain_ColumnClick",
              [](session::Session& session, const session::EventArgs& args) {
                  results::lstMain_ColumnClick(session, static_cast<results::Column>(args.index));
              });
    events.On("frmSearch.lstMain_ItemClick",
              [](session::Session& session, const session::EventArgs& args) {
                  results::lstMain_ItemClick(session, static_cast<std::size_t>(args.index));
              });
}

} // namespace

Program::Program(const platform::Platform& machine, session::PromptService& prompts)
    : session_(machine, prompts) {
    session_.rows = &rows_;
    session_.selection = &selection_;
    rows_.UseDetails(details_);
    AddLifecycleEvents(session_.events);
    AddHelpEvents(session_.events);
    AddListEvents(session_.events);
    search::AddSearchEvents(session_.events);
    actions::AddActionEvents(session_.events);
    session::AddAskLongPathEvents(session_.events);
    session::AddOptionMenuEvents(session_.events);
    session::AddLogViewEvents(session_.events);
}

void Program::Start(std::string_view argument) {
    frmSearch_Load(session_, argument);
}

void Program::Stop() {
    if (!session_.state.blnEnded) frmSearch_Unload(session_);
}

std::string_view ProductName() {
    return "Tarvix";
}
std::string_view ProductVersion() {
    return TARVIX_VERSION;
}

} // namespace tarvix::lifecycle
