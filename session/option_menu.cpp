#include "session/option_menu.h"

#include "session/action_log.h"
#include "session/session.h"

#include <fmt/core.h>

namespace tarvix::session {

namespace {

void Log(Session& session, std::string_view what, bool value) {
    LogTimed(session, fmt::format(" User turned {}: {}", value ? "on" : "off", what));
}

void AllowSubfolders(Session& session) {
    auto& form = session.frmSearch;
    bool& option = session.state.options.blnAllowUserSelectSubfolders;
    option = !option;
    form.mnuOptions_AllowUserSelectSubfolders.Checked = option;
    form.chkIncludeSubFolders.Enabled = option;
    form.chkIncludeSubFolders.ToolTipText = option ? "" : "The Options menu lets it be selected.";
    Log(session, "Allow 'Include subfolders' to be selected", option);
}

void DefaultToSubfolders(Session& session) {
    auto& form = session.frmSearch;
    bool& option = session.state.options.blnDefaultToIncludeSubfolders;
    option = !option;
    form.mnuOptions_DefaultToIncludeSubfolders.Checked = option;
    form.chkIncludeSubFolders.Value = option ? 1 : 0;
    Log(session, "Include subfolders at the start", option);
}

} // namespace

void AddOptionMenuEvents(EventTable& events) {
    events.On("frmSearch.mnuOptions_AllowUserSelectSubfolders_Click", AllowSubfolders);
    events.On("frmSearch.mnuOptions_DefaultToIncludeSubfolders_Click", DefaultToSubfolders);
}

} // namespace tarvix::session
