#include "actions/request/other_requests.h"

#include "actions/place/action_run.h"
#include "actions/request/dialog_setup.h"
#include "actions/request/request_checks.h"
#include "actions/run/figures.h"
#include "actions/run/rename_only.h"
#include "actions/sources/rename_sources.h"
#include "platform/file_system.h"
#include "platform/names.h"
#include "results/selection.h"
#include "session/paths/extra_path_file.h"
#include "session/remembered/histories.h"
#include "session/session.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::size_t kShortestFile = 4;

void Raise(Session& session, std::string_view routine) {
    session.events.Raise(session, fmt::format("frmDialog.{}", routine));
}

// A second file of the list that stands already, or nothing.
std::string SecondFile(Session& session, const std::string& path) {
    const auto& state = session.state;
    const bool hasSecond = state.strAction == "Path and Names" && state.strFileKind == "Create Txt";
    if (!hasSecond) return {};
    std::string second = session::ExtraPathFile(path);
    return IsExistingFile(session, second) ? second : std::string();
}

std::string WriteQuestion(const Session& session, const ActionRequest& request,
                          const std::string& path, bool exists, const std::string& second) {
    const std::string question =
        fmt::format("Are you sure you want to {} {}", request.heading, session.Shown(path));
    if (exists) {
        const std::string too =
            second.empty() ? ""
                           : fmt::format("\r\n{} will be replaced too.", session.Shown(second));
        return fmt::format("{} ?\r\n\r\nThe current file will be replaced by this action.{}",
                           question, too);
    }
    if (!second.empty()) {
        return fmt::format("{} ?\r\n\r\n{} will be replaced by this action.", question,
                           session.Shown(second));
    }
    if (request.strAction != "Names Only") return fmt::format("{} ?", question);
    return fmt::format(
        "{}\r\n\r\n(Local playlists only work if created in same folder as all the songs) ?",
        question);
}

// Writes the file, and leaves the window open when that failed and somebody is there.
void WriteFile(Session& session, ActionRun& run) {
    run.madeFolders.clear();
    Raise(session, "CopyToTextFile");
    if (session.state.blnErrorOccurred && !session.state.IsBatch()) {
        BackToWindow(session);
    } else {
        session.frmDialog.Hide();
    }
    Report(session, run);
}

bool ConfirmRename(Session& session) {
    const std::string deed =
        fmt::format("Rename {}", Counted(session.selection->lngSelTop + 1, "object"));
    return Confirm(session, PromptId::kConfirmRename,
                   "Are you sure you want to rename all selected objects?",
                   {fmt::format("{}?", deed), deed});
}

void HideAndReport(Session& session, const ActionRun& run) {
    session.frmDialog.Hide();
    session.state.blnRedoAfterAction = true;
    Report(session, run);
}

// Nothing was renamed, so the list stands. Whole names are mended in their list and tried again.
void EndRefused(Session& session, const ActionRun& run) {
    if (run.request.wholeNames) return BackToWindow(session);
    session.frmDialog.Hide();
    session.state.blnActionCancelled = true;
    Report(session, run);
}

struct FileSource {
    std::string_view action;
    std::string_view missing;
    std::string_view log;
    SourceEnd (*run)(Session& session, ActionRun& run, const std::string& strFile);
};

constexpr std::array kFileSources{
    FileSource{"RenameFromHTMLSearch", "You did not select an existing html file name.",
               " User selected to rename all files based on a search within this file: ",
               RenameFromHTMLSearch},
    FileSource{"RenameFromSelfSearch", "You did not select an existing file name.",
               " User selected to rename all files based on a search of itself for prefixes "
               "within this file: ",
               RenameFromSelfSearch},
    FileSource{"RenameFromTextFile", "You did not select an existing file name.",
               " User selected to rename all files based on a list within this file: ",
               RenameFromTextFile},
};

} // namespace

void RequestTextFile(Session& session, ActionRun& run) {
    // The name of a written file holds no bars.
    const std::string path = text::Replace(run.request.typed, "|", "");
    const std::string& action = run.request.strAction;
    if (text::Length(path) < kShortestFile) {
        return Refuse(session, PromptId::kTextFileInvalid,
                      "You did not select a proper file name.\r\n\r\n");
    }
    if (!IsPath(session, run.request, path)) return;
    if (platform::GetFolder(session.files(), path)) {
        return Refuse(session, PromptId::kTextFileIsFolder,
                      fmt::format("{} is a folder, you can not write a file over an existing "
                                  "folder.",
                                  session.Shown(path)));
    }
    const bool exists = IsExistingFile(session, path);
    if (!Confirm(session, PromptId::kConfirmWrite,
                 WriteQuestion(session, run.request, path, exists, SecondFile(session, path)))) {
        return;
    }
    session::UpdateDestHistory(session);
    if (exists) {
        session::LogTimed(session, fmt::format(" User selected to copy {} to text file: {}", action,
                                               session.Shown(path)));
    }
    const bool needsSelection =
        action != "Create MPL From Combo Box" && action != "Numeric Increment";
    if (needsSelection && !HasSelection(session)) return;
    WriteFile(session, run);
}

void RequestMakeFolders(Session& session, ActionRun& run) {
    const std::string& path = run.request.typed;
    if (text::Length(path) < 2) {
        return Refuse(session, PromptId::kFoldersPlaceInvalid,
                      "You did not select a valid location for folders.");
    }
    if (!IsPath(session, run.request, path)) return;
    if (text::Length(path) >= kShortestFile && IsExistingFile(session, path)) {
        return Refuse(session, PromptId::kFoldersPlaceIsFile,
                      fmt::format("{} is a file, you can not create folders inside it.",
                                  session.Shown(path)));
    }
    run.madeFolders.clear();
    Raise(session, "MakeFolders");
    Report(session, run);
}

void RequestAutomatedPlaylist(Session& session, ActionRun& run) {
    if (session.selection->lngSelTop < 0) {
        session::LogTimed(session, " Was unable to Generate Playlist , no objects found.\r\nThis "
                                   "search step skipped.\r\n");
        session.frmDialog.Hide();
        return Report(session, run);
    }
    session::LogTimed(session,
                      fmt::format(" User selected to {}object names to file as list: {}",
                                  run.request.strAction, session.Shown(run.request.typed)));
    WriteFile(session, run);
}

void RequestRename(Session& session, ActionRun& run) {
    const RenameRequest& rename = run.request.rename;
    if (!FitsName(session, rename.inserts ? rename.add : rename.replace)) return;
    if (!ConfirmRename(session)) return;
    session::LogTimed(
        session,
        rename.inserts
            ? fmt::format(" User selected to insert: {}", platform::ForDisplay(rename.add))
            : fmt::format(" User selected to find and replace rename using: \r\nFind: {} "
                          "Replace: {}",
                          platform::ForDisplay(rename.find), platform::ForDisplay(rename.replace)));
    if (!HasSelection(session)) return;
    const RenameOnlyEnd end = RenameOnly(session, run);
    if (!end.blnStopped) return HideAndReport(session, run);
    ShowBusy(session, false);
}

void RequestRenameAsTitle(Session& session, ActionRun& run) {
    if (!ConfirmRename(session)) return;
    session::LogTimed(session, " User selected to insert <TITLE> at beg of the current name");
    if (!HasSelection(session)) return;
    (void)RenameAsTitle(session, run);
    HideAndReport(session, run);
}

void RequestRenameFromFile(Session& session, ActionRun& run) {
    const std::string& path = run.request.typed;
    const auto source = std::ranges::find(kFileSources, run.request.strAction, &FileSource::action);
    if (path.empty() || !IsExistingFile(session, path)) {
        return Refuse(session, PromptId::kSourceFileMissing,
                      fmt::format("{}\r\n\r\n", source->missing));
    }
    if (!ConfirmRename(session)) return;
    session::LogTimed(session, fmt::format("{}{}", source->log, session.Shown(path)));
    if (!HasSelection(session)) return;
    // Whole names are written for one run.
    if (!run.request.wholeNames) session::UpdateDestHistory(session);
    if (source->run(session, run, path) != SourceEnd::kRefused) return HideAndReport(session, run);
    EndRefused(session, run);
}

} // namespace tarvix::actions
