#include "generate/playlist_mode.h"

#include "generate/playlist_edit.h"
#include "generate/playlist_load.h"
#include "results/result_list.h"
#include "results/selection.h"
#include "results/sorting.h"
#include "session/lifecycle_events.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <array>
#include <initializer_list>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kLoad = "Load PlayList to Delete and Rename Duplicates";
constexpr std::string_view kReload = "Reload PlayList to Delete and Rename Duplicates";
constexpr std::string_view kFilters = "All Files (*.*)|*.*|M3u Files (*.m3u)|*.m3u|";

constexpr std::string_view kFirstText =
    "The most important first step, BEFORE running this, is to generate the playlist for\r\nthe "
    "primary purpose of finding duplicates. The duplicate finding happens on Action Form not the "
    "Search Form.\r\n\r\nBuilding a playlist in order to find duplicates can run for quite a "
    "while. It depends on how many files are selected for the playlist, and how large the folder "
    "searched is. ";
constexpr std::string_view kSecondText =
    "Once you have generated the proper playlist and load it here, there are two possible actions "
    "to take:\r\n\r\n1. By double clicking (and removing the file selection), the file name will "
    "turn green and be renamed with the same Year-Rank as the first entry in the group (the "
    "original selected file for the playlist) at the end of the name. These should be selected "
    "first, these are the replacement files.\r\n\r\n2. By using normal selection methods you can "
    "select the files to be deleted. These can be any files listed except the replacement files "
    "colored green. The highlighted files will be deleted after the renames.\r\n\r\nNote: "
    "Potentially no duplicates may be found. There is no reason you have to select replacement "
    "files or delete files, for that matter. \r\n\r\nAfter everything is selected all you have to "
    "do is click 'Delete and Rename Files in Playlist' button.\r\n\r\nTo load a different playlist "
    "you must first exit Playlist Delete Dup Mode. By pressing cancel in the menu bar, or "
    "searching.";

// Whether the user still wants it, having read what it is.
bool Explain(Session& session) {
    return session.MsgBox(PromptId::kLoadPlayListFirst, kFirstText) == session::kOk &&
           session.MsgBox(PromptId::kLoadPlayListThen, kSecondText) == session::kOk;
}

std::array<fields::Label*, 8> Counters(fields::FrmSearch& form) {
    return {&form.lblNumOfFilesAttrib,   &form.lblNumOfDirsAttrib,
            &form.lblNumOfFilesFound,    &form.lblNumOfDirsFound,
            &form.lblNumOfFilesSelected, &form.lblNumOfDirsSelected,
            &form.lblTotalSize,          &form.lblGroups};
}

// What shows in the mode, and what in its place otherwise.
void ShowMode(Session& session, bool isOn) {
    auto& form = session.frmSearch;
    session.state.blnPlayListMode = isOn;
    form.mnuTools_LoadPlayList.Caption = std::string(isOn ? kReload : kLoad);
    for (fields::Control* shown :
         std::initializer_list<fields::Control*>{&form.mnuPlayListWarning, &form.fraPlayList,
                                                 &form.cmdEditPlayList, &form.cmdPreviewPlayList}) {
        shown->Visible = isOn;
    }
    for (fields::Control* hidden : std::initializer_list<fields::Control*>{
             &form.fraSelection, &form.fraStandardAction, &form.cmdDeleteSelected,
             &form.cmdRenameSelected}) {
        hidden->Visible = !isOn;
    }
    for (fields::Label* counter : Counters(form)) {
        counter->Visible = !isOn;
    }
}

std::string Counted(std::int64_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", text::Format(count, "#,##0"), count == 1 ? one : many);
}

// What of the playlist is in no row, behind the status.
std::string LeftOut(const PlaylistLoad& load) {
    std::string told;
    if (load.elsewhere > 0) {
        told = Counted(load.elsewhere, "address on the net is", "addresses on the net are") +
               " not listed.";
    }
    if (load.isCut) {
        told += fmt::format("{}The list takes no more than {}; the rest of the playlist is not "
                            "listed.",
                            told.empty() ? "" : " ", Counted(session::kObjectLimit, "row", "rows"));
    }
    return told;
}

void Load(Session& session) {
    const std::string path = session.state.strPlaylistPath;
    session.state.blnPlayListMode = false; // so that nothing of the old rows is counted
    results::ClearList(session);
    results::ShowGroups(session, 1);
    ShowMode(session, true);
    session.frmSearch.lblStatus.Visible = true;
    session.frmSearch.lblStatus.Caption = fmt::format("Reading {}", session.state.strPlaylistName);
    session.Repaint();
    const PlaylistLoad load =
        OpenPlayListFile(session, path, std::string(text::GetParentFolderName(path)));
    session.frmSearch.lblStatus.Caption = LeftOut(load);
    results::BuildFileArray(session);
    session.frmSearch.Focus = &session.frmSearch.lstMain;
}

} // namespace

void mnuTools_LoadPlayList_Click(Session& session) {
    auto& state = session.state;
    if (state.blnPlayListMode) {
        session::LogTimed(session, fmt::format(" User selected to ReLoad {} as a PlayList for "
                                               "Editing, Deleting and Renaming.",
                                               session.Shown(state.strPlaylistName)));
    } else if (!Explain(session)) {
        return;
    }
    const std::string path = session.PickFile(PromptId::kPickPlayList, kFilters);
    if (path.empty()) return;
    state.strPlaylistPath = path;
    state.strPlaylistName = text::FileNameOf(path);
    session::LogTimed(session, fmt::format(" User selected to Load {} as a PlayList for Editing, "
                                           "Deleting and Renaming.",
                                           session.Shown(path)));
    Load(session);
}

void mnuPlayListWarning_Click(Session& session) {
    if (!session.state.blnPlayListMode) return;
    session::LogTimed(session, " User cancelled PlayList mode.");
    session.state.blnPlayListMode = false;
    results::ClearList(session);
    ShowMode(session, false);
}

void ToggleReplacement(Session& session, std::size_t row) {
    if (!session.state.blnPlayListMode || row >= session.rows->Count()) return;
    results::ResultRow& clicked = session.rows->At(row);
    if (clicked.IsSpacer()) return;
    clicked.marks ^= results::kReplacement;
    clicked.selected = false;
    results::CountSelection(session);
}

void ShowBanner(Session& session) {
    std::int64_t entries = 0;
    std::int64_t duplicates = 0;
    std::int64_t replacements = 0;
    std::int64_t deletions = 0;
    for (std::size_t i = 0; i < session.rows->Count(); ++i) {
        const results::ResultRow& row = session.rows->At(i);
        if (row.IsSpacer() || row.isFolder) continue;
        ++(row.Has(results::kEntry) ? entries : duplicates);
        if (row.Has(results::kReplacement)) {
            ++replacements;
        } else if (row.selected) {
            ++deletions;
        }
    }
    session.frmSearch.lblPlayList.Caption = fmt::format(
        "{}: {} and {}. Double-click a file that stays: it turns green and gets the Year-Rank of "
        "the first of its group at the end of its name. Select what goes to the recycle bin. "
        "Marked now: {} green, {} to recycle.",
        session.Shown(session.state.strPlaylistName), Counted(entries, "entry", "entries"),
        Counted(duplicates, "possible duplicate", "possible duplicates"),
        text::Format(replacements, "#,##0"), text::Format(deletions, "#,##0"));
}

void AddPlaylistEvents(session::EventTable& events) {
    events.On("frmSearch.mnuTools_LoadPlayList_Click", mnuTools_LoadPlayList_Click);
    events.On(std::string(lifecycle::kLeavePlayList), mnuPlayListWarning_Click);
    events.On(std::string(lifecycle::kPlayListSelection), ShowBanner);
    events.On("frmSearch.ReloadPlayList", Load);
    events.On("frmSearch.cmdEditPlayList_Click", cmdEditPlayList_Click);
    events.On("frmSearch.cmdPreviewPlayList_Click", cmdPreviewPlayList_Click);
    events.On(std::string(lifecycle::kMarkPlayListRow),
              [](Session& session, const session::EventArgs& args) {
                  ToggleReplacement(session, static_cast<std::size_t>(args.index));
              });
}

} // namespace tarvix::generate
