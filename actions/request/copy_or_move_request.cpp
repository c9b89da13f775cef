#include "actions/request/copy_or_move_request.h"

#include "actions/place/destination.h"
#include "actions/place/special_rule.h"
#include "actions/request/dialog_setup.h"
#include "actions/request/multi_paths.h"
#include "actions/request/request_checks.h"
#include "actions/run/duplicate_dispatch.h"
#include "actions/run/report.h"
#include "platform/dir.h"
#include "results/selection.h"
#include "session/paths/missing_folders.h"
#include "session/paths/short_path.h"
#include "session/remembered/histories.h"
#include "session/session.h"
#include "text/characters.h"

#include <algorithm>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

enum Way { kOneLocation, kMultipleLocations, kUpFolderTree, kSpecialRule };

constexpr std::string_view kNoFolder = "It appears you did not select a destination folder. ";
constexpr std::size_t kShortestFile = 4;

std::string Destination(const Session& session) {
    return session.frmDialog.cmbDir.Text;
}

bool CheckUpFolderTree(Session& session) {
    if (FolderTreeLevels(session) > 0) return true;
    RefuseLevels(session, PromptId::kFolderTreeMissing,
                 "Must have a value of one or greater in the 'Up Folder Tree' textbox.");
    return false;
}

bool CheckSpecialRule(Session& session, std::string& warnings) {
    const std::string rule = Destination(session);
    if (!ValidateSpecialRule(session, rule)) {
        BackToWindow(session);
        return false;
    }
    if (text::Length(rule) < 2) {
        Refuse(session, PromptId::kDestinationMissing, kNoFolder);
        return false;
    }
    warnings += ExtensionWarning(rule);
    return true;
}

// The first of several places, as it will be used; false when it has no form that can be opened,
// and the window stays as it is.
bool FirstPlace(Session& session, std::string& place) {
    const auto& form = session.frmDialog;
    const auto& multi = session.state.action.strMultiPath;
    place = multi.size() > 1 ? multi[1] : std::string();
    const std::string partial = Destination(session);
    if (!form.optStructure[1].Value && !partial.empty()) {
        place += (partial.starts_with('\\') ? "" : "\\") + partial;
    }
    if (text::Length(place) < session::kLongPath) return true;
    auto shortened = session::GetShortPathNameReturnCodes(session, place);
    if (shortened.status < 2) {
        session.MsgBox(PromptId::kFirstPlaceUnshortened,
                       place + " exceeds 259 characters in length AND the folder portion does not "
                               "exist. Was unable to calculate a short path to substitute.");
        BackToWindow(session);
        return false;
    }
    place = std::move(shortened.path);
    return true;
}

bool CheckPlace(Session& session, const std::string& place) {
    if (text::Length(place) >= kShortestFile && IsExistingFile(session, place)) {
        Refuse(session, PromptId::kDestinationIsFile,
               place + " is a file, you can not copy objects inside it.");
        return false;
    }
    const bool needsFolder = session.frmDialog.optTo[kOneLocation].Value;
    if (text::Length(place) < 2 || (needsFolder && place.find('\\') == std::string::npos)) {
        Refuse(session, PromptId::kDestinationMissing, kNoFolder);
        return false;
    }
    return true;
}

bool CheckLocations(Session& session) {
    const std::string typed = Destination(session);
    if (typed.find_first_of("*|") != std::string::npos) {
        Refuse(session, PromptId::kDestinationHasMarks,
               "There is an asterick '*' or bar '|' in the destination path.");
        return false;
    }
    const bool isMultiple =
        session.frmDialog.optTo[kMultipleLocations].Value && session.state.strAction == "Copy";
    std::string place = typed;
    if (isMultiple && !FirstPlace(session, place)) return false;
    if (!CheckPlace(session, place)) return false;
    const auto& multi = session.state.action.strMultiPath;
    for (std::size_t i = 2; isMultiple && i < multi.size(); ++i) {
        if (!CheckPlace(session, multi[i])) return false;
    }
    return true;
}

std::string Question(const Session& session) {
    const auto& form = session.frmDialog;
    const auto structure = static_cast<std::size_t>(std::max(form.optStructure.Chosen(), 0));
    const std::string name = session::strStructureName[structure];
    const std::string heading = form.lblMain.Caption;
    const std::string sure = "Are you sure you want to ";
    const std::string using_ = "sing folder structure - " + name + " ?";
    const auto& multi = session.state.action.strMultiPath;
    switch (form.optTo.Chosen()) {
    case kMultipleLocations:
        return sure + heading + " " + (multi.size() > 1 ? multi[1] : std::string()) +
               (form.optStructure[1].Value ? std::string() : Destination(session)) +
               " and other destination folders?\r\nU" + using_;
    case kUpFolderTree:
        return sure +
               (form.chkFolderRename.Value == 1 ? "move and rename object(s) "
                                                : "move object(s) ") +
               "up folder tree " + form.txtFolderTree.Text.Get() + " folder(s)?\r\nU" + using_;
    case kSpecialRule:
        return sure + heading + " to varying folders using Special Rule - " + Destination(session) +
               "?";
    default:
        return sure + heading + " " + Destination(session) + " u" + using_;
    }
}

void RunConfirmed(Session& session, const std::string& warnings) {
    const auto& form = session.frmDialog;
    const auto id =
        warnings.empty() ? PromptId::kConfirmCopyOrMove : PromptId::kConfirmCopyOrMoveWarned;
    if (!Confirm(session, id, warnings + Question(session))) return ReportActionResult(session);
    if (form.cmbDir.Visible) session::UpdateDestHistory(session);
    if (form.optTo[kSpecialRule].Value) session.state.action.strFailedPosition.clear();
    if (form.optTo[kMultipleLocations].Value) CloseMultiPathInEditor(session);
    if (!HasSelection(session)) return ReportActionResult(session);
    const int way = std::max(form.optTo.Chosen(), 0);
    session::LogTimed(session, " User selected to " + session.state.strAction +
                                   "objects to folder: " + Destination(session) + " Using " +
                                   text::Replace(form.optTo[way].Caption.Get(), "&", ""));
    DispatchByDuplicates(session);
    Report(session);
}

// What is wrong with the step of a batch; empty when it can run.
std::string WhyNotAutomated(Session& session) {
    const std::string folder = Destination(session);
    auto& failed = session.state.batch.blnStepFailed;
    if (IsExistingFile(session, folder)) {
        failed = true;
        return folder + " is a file, you can not move objects inside it.";
    }
    const auto exists = [&] {
        return !platform::DirName(session.files(), folder, platform::kDirAll).empty();
    };
    if (!exists()) session::CreateMissingFolder(session, folder, true);
    if (!exists()) {
        failed = true;
        return "Was unable to create destination folder " + folder;
    }
    return session.selection->lngSelTop < 0 ? "Was unable to do move, no objects found."
                                            : std::string();
}

} // namespace

void RequestCopyOrMove(Session& session) {
    const auto& form = session.frmDialog;
    std::string warnings;
    if (form.optTo[kUpFolderTree].Value && session.state.strAction == "Move") {
        if (!CheckUpFolderTree(session)) return;
    } else if (form.optTo[kSpecialRule].Value) {
        if (!CheckSpecialRule(session, warnings)) return;
    } else if (!CheckLocations(session)) {
        return;
    }
    if (!HasRenameText(session)) return;
    warnings += SameLocationWarning(session);
    RunConfirmed(session, warnings);
}

void RequestCopyAsFolderName(Session& session) {
    const std::string destination = Destination(session);
    if (FolderTreeLevels(session) == 0) {
        return RefuseLevels(session, PromptId::kFolderNamesMissing,
                            "Must have a selected more than one Folder name to use.");
    }
    if (text::Length(destination) == 1) {
        return Refuse(session, PromptId::kDestinationOneCharacter,
                      "It appears you did not select a valid destination folder.\r\n" +
                          destination + " is only one character.\r\n\r\n");
    }
    if (destination.empty() && session.frmDialog.optTo[kOneLocation].Value) {
        return Refuse(session, PromptId::kDestinationMissing,
                      "It appears you did not select a destination folder. \r\n\r\n");
    }
    if (!HasRenameText(session)) return;
    RunConfirmed(session, ExtensionWarning(destination) + SameLocationWarning(session));
}

void RequestAutomatedMove(Session& session) {
    const std::string wrong = WhyNotAutomated(session);
    if (!wrong.empty()) {
        session::LogTimed(session, " " + wrong + "\r\nThis search step skipped.\r\n");
        session.frmDialog.Hide();
        return SetBusy(session, false);
    }
    session::LogTimed(session, " User selected to " + session.state.strAction +
                                   "objects to folder: " + Destination(session));
    DispatchByDuplicates(session);
    Report(session);
}

} // namespace tarvix::actions
