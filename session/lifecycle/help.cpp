#include "session/lifecycle/help.h"

#include "platform/file_system.h"
#include "platform/launcher.h"
#include "session/session.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <array>
#include <string>

namespace tarvix::lifecycle {

namespace {

using session::Session;

// A page by its told file, and by the one that lies here.
struct Page {
    std::string_view told;
    std::string_view here;
};
constexpr Page kGuide{"Tarvix.rtf", "guide.md"};
constexpr Page kGeneralInformation{"User Doc.txt", "general.md"};
constexpr Page kAdvancedFunctions{"Advanced Functions.txt", "advanced.md"};
constexpr Page kVersionChanges{"Version Changes.txt", "version-changes.md"};
constexpr Page kHotKeyCodes{"Internet Shortcut HotKey codes.txt", "hot-keys.md"};

// Beside the program, where an installed program has its texts, or in the tree that it was built
// in.
std::string PathOf(Session& session, const Page& page) {
    const std::string& folder = session.state.strProgramFolder;
    const auto above = text::ParentFolder(folder);
    const std::string_view name = session.platform.traits.hasNativePaths ? page.here : page.told;
    std::array<std::string, 3> places{
        text::JoinPath(folder, name), fmt::format("{}\\share\\doc\\tarvix\\{}", above, name),
        fmt::format("{}\\docs\\help\\{}", text::ParentFolder(above), name)};
    for (std::string& place : places) {
        if (session.files().Facts(place)) return std::move(place);
    }
    return std::move(places.front());
}

void Open(Session& session, const Page& page) {
    const std::string path = PathOf(session, page);
    if (session.events.Raise(session, kShowHelp, {.path = path})) return;
    const auto opened = session.platform.launcher.OpenDocument(path);
    if (!opened) session.frmSearch.lblStatus.Caption = session.Shown(opened.error());
}

} // namespace

void OpenHelp(Session& session) {
    Open(session, kGuide);
}
void OpenGeneralInformation(Session& session) {
    Open(session, kGeneralInformation);
}
void OpenAdvancedFunctions(Session& session) {
    Open(session, kAdvancedFunctions);
}
void OpenVersionChanges(Session& session) {
    Open(session, kVersionChanges);
}
void OpenHotKeyCodes(Session& session) {
    Open(session, kHotKeyCodes);
}

void AddHelpEvents(session::EventTable& events) {
    events.On("frmSearch.mnuHelp_Help_Click", OpenHelp);
    events.On("frmSearch.mnuHelp_GenInfo_Click", OpenGeneralInformation);
    events.On("frmSearch.mnuHelp_Advanced_Click", OpenAdvancedFunctions);
    events.On("frmSearch.mnuHelp_Ver_Click", OpenVersionChanges);
    events.On("frmSearch.mnuHelp_HotKey_Click", OpenHotKeyCodes);
}

} // namespace tarvix::lifecycle
