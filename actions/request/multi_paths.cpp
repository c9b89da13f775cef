#include "actions/request/multi_paths.h"

#include "actions/place/action_request.h"
#include "actions/request/destination_controls.h"
#include "platform/dir.h"
#include "platform/launcher.h"
#include "platform/native_paths.h"
#include "session/paths/path_list.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tarvix::actions {

namespace {

using session::Session;

std::string ListPath(const Session& session, std::size_t position) {
    return text::JoinPath(session.state.strDataFolder,
                          session.frmDialog.filMultiPath.Items()[position]);
}

std::vector<std::string> ChosenLists(const Session& session) {
    const auto& list = session.frmDialog.filMultiPath;
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < list.Items().size(); ++i) {
        if (list.IsSelected(i)) paths.push_back(ListPath(session, i));
    }
    return paths;
}

void ReadInto(Session& session, const std::string& list, std::vector<std::string>& paths) {
    const std::string read = session::ReadPathList(session, list);
    for (const std::string_view line : text::Split(read, '|')) {
        const std::string path = session.platform.paths.ToDrive(text::Trim(line));
        const std::string cleaned = text::CleanSpacesInPath(path, false);
        const std::string_view place = text::StripTrailingSlash(cleaned);
        if (!place.empty()) paths.emplace_back(place);
    }
}

void ShowInEditor(Session& session, std::size_t position) {
    const auto opened = session.platform.launcher.OpenDocument(ListPath(session, position));
    if (!opened) session.frmDialog.lblStatus.Caption = session.Shown(opened.error());
}

void filMultiPath_Click(Session& session, const session::EventArgs& args) {
    const auto& list = session.frmDialog.filMultiPath;
    LoadMultiPaths(session);
    if (args.index < 0 || args.index >= static_cast<int>(list.Items().size())) return;
    const auto position = static_cast<std::size_t>(args.index);
    if (list.IsSelected(position)) {
        ShowInEditor(session, position);
    } else {
        session.platform.launcher.CloseDocument(ListPath(session, position));
    }
}

void lstMulti_DblClick(Session& session) {
    CloseMultiPathInEditor(session);
    session.frmDialog.filMultiPath.SelectNone();
    LoadMultiPaths(session);
}

} // namespace

void RefreshMultiPathList(Session& session) {
    platform::Dir dir(session.files());
    std::vector<std::string> names;
    const std::string spec = text::JoinPath(session.state.strDataFolder, "*.mpl");
    for (std::string name = dir.First(spec, platform::kDirFiles); !name.empty();
         name = dir.Next()) {
        names.push_back(name);
    }
    session.frmDialog.filMultiPath.SetItems(std::move(names));
}

void LoadMultiPaths(Session& session) {
    std::vector<std::string> paths;
    for (const std::string& list : ChosenLists(session)) {
        ReadInto(session, list, paths);
    }
    session.frmDialog.lblStatus.Caption =
        paths.size() <= kMultiPathLimit ? std::string() : "Only the first 1000 locations are used.";
    paths.resize(std::min(paths.size(), kMultiPathLimit));
    session.frmDialog.lstMulti.SetItems(std::move(paths));
    ShowDestinationFields(session);
}

void CloseMultiPathInEditor(Session& session) {
    for (const std::string& list : ChosenLists(session)) {
        session.platform.launcher.CloseDocument(list);
    }
}

void AddMultiPathEvents(session::EventTable& events) {
    events.On("frmDialog.filMultiPath_Click", filMultiPath_Click);
    events.On("frmDialog.lstMulti_DblClick", lstMulti_DblClick);
}

} // namespace tarvix::actions
