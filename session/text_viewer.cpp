#include "session/text_viewer.h"

#include "platform/launcher.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/session.h"

namespace tarvix::session {

namespace {

constexpr std::string_view kLogFilters = "Action Logs (TXAction*.log)|TXAction*.log|"
                                         "Error Logs (TXProgramError*.log)|TXProgramError*.log|"
                                         "Option Files (TXOptionFile*.*)|TXOptionFile*.*|"
                                         "History Files (*HistoryFile*.*)|*HistoryFile*.*|"
                                         "All Files (*.*)|*.*|"
                                         "Text Files (*.txt)|*.txt|"
                                         "Playlist Files (*.m3u)|*.m3u|"
                                         "Multiple Path List Files (*.mpl)|*.mpl|"
                                         "(*.txt;*.m3u;*.mpl)|*.txt;*.m3u;*.mpl|";

void mnuToolViewActionLog_Click(Session& session, const EventArgs&) {
    ViewAsText(session, session.state.strActionLogFile, "mnuToolViewActionLog_Click");
}

void mnuToolViewAnyActionLog_Click(Session& session, const EventArgs&) {
    const std::string file = session.PickFile(PromptId::kPickLog, kLogFilters);
    if (!file.empty()) ViewAsText(session, file, "mnuToolViewAnyActionLog_Click");
}

} // namespace

bool ViewAsText(Session& session, const std::string& path, std::string_view routine) {
    const ErrorContext context{.routine = routine,
                               .moduleName = "frmSearch",
                               .object = path,
                               .path = path,
                               .objectType = ObjectType::kFile};
    const std::string& editor = session.state.platformSettings.editor;
    auto& launcher = session.platform.launcher;
    return static_cast<bool>(Attempt(session, context, [&] {
        return editor.empty() ? launcher.OpenDocument(path) : launcher.OpenWith(editor, path);
    }));
}

void AddLogViewEvents(EventTable& events) {
    events.On("frmSearch.mnuToolViewActionLog_Click", mnuToolViewActionLog_Click);
    events.On("frmSearch.mnuToolViewAnyActionLog_Click", mnuToolViewAnyActionLog_Click);
}

} // namespace tarvix::session
