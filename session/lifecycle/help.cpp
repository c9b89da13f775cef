#include "session/lifecycle/help.h"

#include "platform/file_system.h"
#include "platform/launcher.h"
#include "session/session.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <string>
#include <string_view>

namespace tarvix::lifecycle {

namespace {

// Beside the program, or where an installed program has its texts.
std::string PathOf(session::Session& session, std::string_view name) {
    const std::string& folder = session.state.strProgramFolder;
    std::string beside = text::JoinPath(folder, name);
    if (session.files().Facts(beside)) return beside;
    return fmt::format("{}\\share\\doc\\tarvix\\{}", text::ParentFolder(folder), name);
}

void OpenText(session::Session& session, std::string_view name) {
    const auto opened = session.platform.launcher.OpenDocument(PathOf(session, name));
    if (!opened) session.frmSearch.lblStatus.Caption = session.Shown(opened.error());
}

} // namespace

void OpenHelp(session::Session& session) {
    OpenText(session, "Tarvix.rtf");
}
void OpenGeneralInformation(session::Session& session) {
    OpenText(session, "User Doc.txt");
}
void OpenAdvancedFunctions(session::Session& session) {
    OpenText(session, "Advanced Functions.txt");
}
void OpenVersionChanges(session::Session& session) {
    OpenText(session, "Version Changes.txt");
}

void AddHelpEvents(session::EventTable& events) {
    events.On("frmSearch.mnuHelp_Help_Click", OpenHelp);
    events.On("frmSearch.mnuHelp_GenInfo_Click", OpenGeneralInformation);
    events.On("frmSearch.mnuHelp_Advanced_Click", OpenAdvancedFunctions);
    events.On("frmSearch.mnuHelp_Ver_Click", OpenVersionChanges);
}

} // namespace tarvix::lifecycle
