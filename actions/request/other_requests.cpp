#include "actions/request/other_requests.h"

#include "actions/request/dialog_setup.h"
#include "actions/request/request_checks.h"
#include "actions/run/rename_only.h"
#include "actions/run/report.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/remembered/histories.h"
#include "session/session.h"
#include "text/characters.h"

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kGap = "\r\n\r\n";
constexpr std::size_t kShortestFile = 4;

std::string Destination(const Session& session) {
    return session.frmDialog.cmbDir.Text;
}

void Raise(Session& session, std::string_view routine) {
    session.events.Raise(session, std::string("frmDialog.").append(routine));
}

std::string WriteQuestion(Session& session, bool exists) {
    const bool isList = session.state.strAction == "Names Only";
    std::string question = "Are you sure you want to " + session.frmDialog.lblMain.Caption.Get() +
                           " " + Destination(session);
    if (!exists && isList) {
        return question + "\r\n\r\n(Local playlists only work if created in same folder as all "
                          "the songs) ?";
    }
    question += " ?";
    if (exists) question += "\r\n\r\nThe current file will be replaced by this action.";
    return question;
}

// Writes the file, and leaves the window open when that failed.
void WriteFile(Session& session) {
    Raise(session, "CopyToTextFile");
    if (session.state.action.blnErrorOccurred) {
        BackToWindow(session);
    } else {
        session.frmDialog.Hide();
    }
    Report(session);
}

bool ConfirmRename(Session& session) {
    return Confirm(session, PromptId::kConfirmRename,
                   "Are you sure you want to rename all selected objects?");
}

void HideAndReport(Session& session) {
    session.frmDialog.Hide();
    session.state.blnRedoAfterAction = true;
    Report(session);
}

struct FileSource {
    std::string_view action;
    std::string_view missing;
    std::string_view log;
};

constexpr std::array kFileSources{
    FileSource{"RenameFromHTMLSearch", "You did not select an existing html file name.",
               " User selected to rename all files based on a search within this file: "},
    FileSource{"RenameFromSelfSearch", "You did not select an existing file name.",
               " User selected to rename all files based on a search of itself for prefixes "
               "within this file: "},
    FileSource{"RenameFromTextFile", "You did not select an existing file name.",
               " User selected to rename all files based on a list within this file: "},
};

} // namespace

void RequestTextFile(Session& session) {
    const std::string path = Destination(session);
    const std::string& action = session.state.strAction;
    if (text::Length(path) < kShortestFile) {
        return Refuse(session, PromptId::kTextFileInvalid,
                      "You did not select a proper file name.\r\n\r\n");
    }
    if (platform::GetFolder(session.files(), path)) {
        return Refuse(session, PromptId::kTextFileIsFolder,
                      path + " is a folder, you can not write a file over an existing folder.");
    }
    const bool exists = IsExistingFile(session, path);
    if (!Confirm(session, PromptId::kConfirmWrite, WriteQuestion(session, exists))) return;
    session::UpdateDestHistory(session);
    if (exists) {
        session::LogTimed(session, " User selected to copy " + action + " to text file: " + path);
    }
    const bool needsSelection =
        action != "Create MPL From Combo Box" && action != "Numeric Increment";
    if (needsSelection && !HasSelection(session)) return;
    WriteFile(session);
}

void RequestMakeFolders(Session& session) {
    const std::string path = Destination(session);
    if (text::Length(path) < 2) {
        return Refuse(session, PromptId::kFoldersPlaceInvalid,
                      "You did not select a valid location for folders.");
    }
    if (text::Length(path) >= kShortestFile && IsExistingFile(session, path)) {
        return Refuse(session, PromptId::kFoldersPlaceIsFile,
                      path + " is a file, you can not create folders inside it.");
    }
    Raise(session, "MakeFolders");
    Report(session);
}

void RequestAutomatedPlaylist(Session& session) {
    if (session.selection->lngSelTop < 0) {
        session::LogTimed(session, " Was unable to Generate Playlist , no objects found.\r\nThis "
                                   "search step skipped.\r\n");
        session.frmDialog.Hide();
        return Report(session);
    }
    session::LogTimed(session, " User selected to " + session.state.strAction +
                                   "object names to file as list: " + Destination(session));
    WriteFile(session);
}

void RequestRename(Session& session) {
    const auto& form = session.frmDialog;
    auto& action = session.state.action;
    if (!ConfirmRename(session)) return;
    session::LogTimed(session, form.chkFindReplace.Value == 1
                                   ? " User selected to find and replace rename using: \r\nFind: " +
                                         form.txtFind.Text.Get() +
                                         " Replace: " + form.txtReplace.Text.Get()
                                   : " User selected to insert: " + form.txtAdd.Text.Get());
    if (!HasSelection(session)) return;
    RenameOnly(session);
    if (!action.blnStopped) return HideAndReport(session);
    action.blnStopped = action.blnRenamed = false;
    SetBusy(session, false);
}

void RequestRenameAsTitle(Session& session) {
    if (!ConfirmRename(session)) return;
    session::LogTimed(session, " User selected to insert <TITLE> at beg of the current name");
    if (!HasSelection(session)) return;
    Raise(session, "RenameAsTitle");
    HideAndReport(session);
}

void RequestRenameFromFile(Session& session) {
    const std::string path = Destination(session);
    const auto source =
        std::ranges::find(kFileSources, session.state.strAction, &FileSource::action);
    if (path.empty() || !IsExistingFile(session, path)) {
        return Refuse(session, PromptId::kSourceFileMissing,
                      std::string(source->missing).append(kGap));
    }
    if (!ConfirmRename(session)) return;
    session::LogTimed(session, std::string(source->log) + path);
    if (!HasSelection(session)) return;
    Raise(session, source->action);
    HideAndReport(session);
}

} // namespace tarvix::actions
