#include "search/browse.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "results/net_hood.h"
#include "session/paths/path_list.h"
#include "session/paths/picker_start.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::search {

namespace {

using session::Session;

enum BrowseMode : int { kPath = 0, kAddPath = 1, kList = 2, kAddList = 3 };

constexpr std::string_view kListFilters = "Multiple Path List Files (*.mpl)|*.mpl|"
                                          "Text Files (*.txt)|*.txt|"
                                          "Both (*.txt;*.mpl)|*.txt;*.mpl|";

void TakeLocations(Session& session, const std::string& locations, bool append) {
    if (locations.empty()) return;
    auto& box = session.frmSearch.cmbDir;
    const std::string before = append ? box.Text.Get() : std::string{};
    box.Text = before.empty() ? locations : fmt::format("{}|{}", before, locations);
}

} // namespace

void cmdBrowse_Click(Session& session) {
    const int mode = session.frmSearch.optBrowse.Chosen();
    const std::string start = session::PickerStart(session, session.frmSearch.cmbDir.Text.Get());
    if (mode == kPath || mode == kAddPath) {
        const std::string folder = session.PickFolder(session::PromptId::kPickLocation, start);
        TakeLocations(session, results::ResolveNetHood(session, folder), mode == kAddPath);
        return;
    }
    const std::string list =
        session.PickFile(session::PromptId::kPickPathList, kListFilters, start);
    if (list.empty()) return;
    TakeLocations(session, session::ReadPathList(session, list), mode == kAddList);
}

void DropLocations(Session& session, const std::vector<std::string>& paths) {
    for (const std::string& dropped : paths) {
        const std::string path =
            results::ResolveNetHood(session, session.platform.paths.ToDrive(dropped));
        const auto facts = session.files().Facts(path);
        if (!facts) continue;
        if (facts->IsFolder()) {
            TakeLocations(session, path, true);
        } else if (text::EqualNoCase(text::GetExtension(path), "mpl")) {
            TakeLocations(session, session::ReadPathList(session, path), true);
        } else {
            TakeLocations(session, std::string(text::GetParentFolderName(path)), true);
        }
    }
}

void ChooseBrowseMode(Session& session, int mode) {
    auto& form = session.frmSearch;
    form.optBrowse.Choose(mode);
    for (int i = 0; i < form.optBrowse.Count(); ++i) {
        const fields::Color color = i == mode ? fields::kRed : fields::kBlack;
        auto& entry = form.mnuBrowse_Behave[static_cast<std::size_t>(i)];
        form.optBrowse[i].ForeColor = color;
        entry.Checked = i == mode;
        entry.ForeColor = color;
    }
}

void AddBrowseEvents(session::EventTable& events) {
    const auto choose = [](Session& session, const session::EventArgs& args) {
        ChooseBrowseMode(session, args.index);
    };
    const auto clear = [](Session& session, const session::EventArgs&) {
        session.frmSearch.cmbDir.Text = "";
    };
    events.On("frmSearch.cmdBrowse_Click", cmdBrowse_Click);
    events.On("frmSearch.optBrowse_Click", choose);
    events.On("frmSearch.mnuBrowse_Behave_Click", choose);
    events.On("frmSearch.cmdClearFolders_Click", clear);
    events.On("frmSearch.mnuBrowse_ClearNow_Click", clear);
}

} // namespace tarvix::search
