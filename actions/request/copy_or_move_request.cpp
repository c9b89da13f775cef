#include "actions/request/copy_or_move_request.h"

#include "actions/place/action_run.h"
#include "actions/request/dialog_setup.h"
#include "actions/request/multi_paths.h"
#include "actions/request/remembered_structure.h"
#include "actions/request/request_checks.h"
#include "actions/run/duplicate_dispatch.h"
#include "actions/run/figures.h"
#include "actions/run/report.h"
#include "platform/dir.h"
#include "results/selection.h"
#include "session/paths/missing_folders.h"
#include "session/paths/short_path.h"
#include "session/remembered/histories.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <iterator>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kNoFolder = "It appears you did not select a destination folder. ";
constexpr std::size_t kShortestFile = 4;

bool CheckUpFolderTree(Session& session, const ActionRequest& request) {
    if (request.levels > 0) return true;
    RefuseLevels(session, PromptId::kFolderTreeMissing,
                 "Must have a value of one or greater in the 'Up Folder Tree' textbox.");
    return false;
}

bool CheckSpecialRule(Session& session, const ActionRequest& request, std::string& warnings) {
    if (!IsPath(session, request, request.typed)) return false;
    if (!request.rule) {
        Refuse(session, PromptId::kRuleInvalid, ValidateSpecialRule(request.typed).error());
        return false;
    }
    if (text::Length(request.typed) < 2) {
        Refuse(session, PromptId::kDestinationMissing, kNoFolder);
        return false;
    }
    warnings += ExtensionWarning(session, request.typed);
    return true;
}

// The first of several places, as it will be used; false when it has no form that can be opened,
// and the window stays as it is.
bool FirstPlace(Session& session, ActionRun& run, std::string& place) {
    const ActionRequest& request = run.request;
    place = request.strMultiPath.empty() ? std::string() : request.strMultiPath.front();
    const std::string& partial = request.typed;
    if (request.structure != Structure::kDriveMirror && !partial.empty()) {
        place.append(partial.starts_with('\\') ? "" : "\\").append(partial);
    }
    if (!session::ExceedsLimit(session, place, session::kLongPath - 1)) return true;
    auto shortened = session::GetShortPathNameReturnCodes(session, place);
    std::ranges::move(shortened.made, std::back_inserter(run.madeFolders));
    if (shortened.status < 2) {
        session.MsgBox(PromptId::kFirstPlaceUnshortened,
                       fmt::format("{} exceeds 259 characters in length AND the folder portion "
                                   "does not exist. Was unable to calculate a short path to "
                                   "substitute.",
                                   session.Shown(place)));
        BackToWindow(session);
        return false;
    }
    place = std::move(shortened.path);
    return true;
}

bool CheckPlace(Session& session, const ActionRequest& request, const std::string& place) {
    if (text::Length(place) >= kShortestFile && IsExistingFile(session, place)) {
        Refuse(
            session, PromptId::kDestinationIsFile,
            fmt::format("{} is a file, you can not copy objects inside it.", session.Shown(place)));
        return false;
    }
    const bool isRoot =
        session.platform.traits.takesRoots && place.size() == 2 && place.ends_with(':');
    const bool needsFolder = request.way == Way::kOneLocation && !isRoot;
    if (text::Length(place) < 2 || (needsFolder && !place.contains('\\'))) {
        Refuse(session, PromptId::kDestinationMissing, kNoFolder);
        return false;
    }
    return true;
}

// The folder itself or, where it is still to be made, the nearest above it; empty for none.
std::string StandingFolder(Session& session, std::string folder) {
    while (!folder.empty()) {
        const auto facts = session.files().Facts(folder);
        if (facts) return facts->IsFolder() ? folder : std::string();
        std::string above(text::GetParentFolderName(folder));
        if (above == folder) break;
        folder = std::move(above);
    }
    return {};
}

// One question before the loop in place of one for each object. Who only reads what became of them
// is told that of each.
bool TakesObjects(Session& session, const ActionRequest& request, const std::string& place) {
    const bool isPlace = request.structure != Structure::kDriveMirror;
    if (!isPlace || !session.prompts.PrefersForms()) return true;
    const std::string folder = StandingFolder(session, place);
    const auto may =
        folder.empty() ? platform::Result<void>() : session.files().Foresee().MayAddTo(folder);
    if (may || may.error().number != platform::kPermissionDenied) return true;
    Refuse(session, PromptId::kDestinationRefuses,
           fmt::format("Nothing can be put into {}.\r\n\r\n{}\r\n\r\nNothing was {}. Choose "
                       "another folder, or change the rights of this one.",
                       session.Shown(place), session.Shown(may.error()),
                       request.isMove ? "moved" : "copied"));
    return false;
}

bool CheckLocations(Session& session, ActionRun& run) {
    const ActionRequest& request = run.request;
    if (request.typed.find_first_of("*|") != std::string::npos) {
        Refuse(session, PromptId::kDestinationHasMarks,
               "There is an asterick '*' or bar '|' in the destination path.");
        return false;
    }
    if (!IsPath(session, request, request.typed)) return false;
    const bool isMultiple = request.way == Way::kMultipleLocations && request.strAction == "Copy";
    std::string place = request.typed;
    if (isMultiple && !FirstPlace(session, run, place)) return false;
    if (!CheckPlace(session, request, place)) return false;
    for (std::size_t i = 1; isMultiple && i < request.strMultiPath.size(); ++i) {
        if (!CheckPlace(session, request, request.strMultiPath[i])) return false;
    }
    const bool isOne = request.way == Way::kOneLocation;
    if (isOne) return TakesObjects(session, request, request.typed);
    return !isMultiple || std::ranges::all_of(request.strMultiPath, [&](const std::string& each) {
        return TakesObjects(session, request, each);
    });
}

std::string Question(const Session& session, const ActionRequest& request) {
    const std::string_view structure =
        strStructureName[static_cast<std::size_t>(request.structure)];
    const std::string typed = session.Shown(request.typed);
    switch (request.way) {
    case Way::kMultipleLocations:
        return fmt::format(
            "Are you sure you want to {} {}{} and other destination folders?\r\nUsing folder "
            "structure - {} ?",
            request.heading,
            request.strMultiPath.empty() ? "" : session.Shown(request.strMultiPath.front()),
            request.structure == Structure::kDriveMirror ? "" : typed, structure);
    case Way::kUpFolderTree:
        return fmt::format("Are you sure you want to {} object(s) up folder tree {} folder(s)?\r\n"
                           "Using folder structure - {} ?",
                           request.prefixesFolders ? "move and rename" : "move",
                           request.levelsTyped, structure);
    case Way::kSpecialRule:
        return fmt::format("Are you sure you want to {} to varying folders using Special Rule - "
                           "{}?",
                           request.heading, typed);
    case Way::kOneLocation:
        break;
    }
    return fmt::format("Are you sure you want to {} {} using folder structure - {} ?",
                       request.heading, typed, structure);
}

std::string PlainPlace(const Session& session, const ActionRequest& request) {
    const std::string typed = session.Shown(request.typed);
    switch (request.way) {
    case Way::kMultipleLocations:
        return request.strMultiPath.size() == 1
                   ? fmt::format(" to {}", session.Shown(request.strMultiPath.front()))
                   : fmt::format(" to each of {} folders", request.strMultiPath.size());
    case Way::kUpFolderTree:
        return fmt::format(" up {}", Counted(request.levels, "folder"));
    case Way::kSpecialRule:
        return fmt::format(" by the rule {}", typed);
    case Way::kOneLocation:
        break;
    }
    return fmt::format(" to {}", typed);
}

std::string DeedText(const Session& session, const ActionRequest& request) {
    return fmt::format("{} {}", request.isMove ? "Move" : "Copy",
                       Counted(session.selection->lngSelTop + 1, "object"));
}

// "Copy 391 objects to ~/Backup?"
std::string PlainQuestion(const Session& session, const ActionRequest& request) {
    const auto structure = static_cast<std::size_t>(request.structure);
    std::string told =
        fmt::format("{}{}?", DeedText(session, request), PlainPlace(session, request));
    if (structure > 0) {
        told += fmt::format("\r\n\r\nFolder structure: {}.", strStructureName[structure]);
    }
    return told;
}

void LogStart(Session& session, const ActionRequest& request) {
    session::LogTimed(session, fmt::format(" User selected to {}objects to folder: {} Using {}",
                                           request.strAction, session.Shown(request.typed),
                                           kWayNames[static_cast<std::size_t>(request.way)]));
}

void RunConfirmed(Session& session, ActionRun& run, const std::string& warnings) {
    const ActionRequest& request = run.request;
    const auto id =
        warnings.empty() ? PromptId::kConfirmCopyOrMove : PromptId::kConfirmCopyOrMoveWarned;
    if (!Confirm(session, id, warnings + Question(session, request),
                 {warnings + PlainQuestion(session, request), DeedText(session, request)})) {
        return ReportActionResult(session, run);
    }
    if (session.frmDialog.cmbDir.Visible) {
        session::UpdateDestHistory(session);
        RememberStructure(session, request);
    }
    if (request.way == Way::kSpecialRule) {
        session.state.strFailedPosition.clear();
        session.state.strLastFailedSearch.clear();
    }
    if (request.way == Way::kMultipleLocations) CloseMultiPathInEditor(session);
    if (!HasSelection(session)) return ReportActionResult(session, run);
    LogStart(session, request);
    run.madeFolders.clear();
    DispatchByDuplicates(session, run);
    Report(session, run);
}

bool IsFullPath(std::string_view path) {
    return path.starts_with("\\\\") || (path.size() > 2 && path[1] == ':' && path[2] == '\\');
}

// What is wrong with the folder that a step of a batch moves to; empty when it stands there.
std::string WhyNotInto(Session& session, const std::string& folder) {
    const std::string shown = session.Shown(folder);
    if (!IsFullPath(folder)) return fmt::format("{} is not a full path of a folder.", shown);
    if (IsExistingFile(session, folder)) {
        return fmt::format("{} is a file, you can not move objects inside it.", shown);
    }
    const auto exists = [&] {
        return !platform::DirName(session.files(), folder, platform::kDirAll).empty();
    };
    if (!exists()) session::CreateMissingFolder(session, folder, true);
    return exists() ? std::string()
                    : fmt::format("Was unable to create destination folder {}", shown);
}

// What is wrong with the step of a batch; empty when it can run. Nothing found is no failure.
std::string WhyNotAutomated(Session& session, const ActionRequest& request) {
    auto& batch = session.state.batch;
    batch.strWrong = WhyNoName(request.renameText);
    if (batch.strWrong.empty()) batch.strWrong = WhyNotInto(session, request.typed);
    batch.blnStepFailed = !batch.strWrong.empty();
    if (batch.blnStepFailed) return batch.strWrong;
    return session.selection->lngSelTop < 0 ? "Was unable to do move, no objects found."
                                            : std::string();
}

} // namespace

void RequestCopyOrMove(Session& session, ActionRun& run) {
    const ActionRequest& request = run.request;
    std::string warnings;
    if (request.way == Way::kUpFolderTree && request.strAction == "Move") {
        if (!CheckUpFolderTree(session, request)) return;
    } else if (request.way == Way::kSpecialRule) {
        if (!CheckSpecialRule(session, request, warnings)) return;
    } else if (!CheckLocations(session, run)) {
        return;
    }
    if (!HasRenameText(session, request)) return;
    warnings += SameLocationWarning(session, request);
    RunConfirmed(session, run, warnings);
}

void RequestCopyAsFolderName(Session& session, ActionRun& run) {
    const ActionRequest& request = run.request;
    const std::string& typed = request.typed;
    if (request.levels == 0) {
        return RefuseLevels(session, PromptId::kFolderNamesMissing,
                            "Must have a selected more than one Folder name to use.");
    }
    if (text::Length(typed) == 1) {
        return Refuse(session, PromptId::kDestinationOneCharacter,
                      fmt::format("It appears you did not select a valid destination folder.\r\n{} "
                                  "is only one character.\r\n\r\n",
                                  typed));
    }
    if (typed.empty() && request.way == Way::kOneLocation) {
        return Refuse(session, PromptId::kDestinationMissing,
                      "It appears you did not select a destination folder. \r\n\r\n");
    }
    if (!IsPath(session, request, request.typed) || !HasRenameText(session, request)) return;
    RunConfirmed(session, run,
                 ExtensionWarning(session, typed) + SameLocationWarning(session, request));
}

void RequestAutomatedMove(Session& session, ActionRun& run) {
    const ActionRequest& request = run.request;
    const std::string wrong = WhyNotAutomated(session, request);
    if (!wrong.empty()) {
        session::LogTimed(session, fmt::format(" {}\r\nThis search step skipped.\r\n", wrong));
        session.frmDialog.Hide();
        return ShowBusy(session, false);
    }
    session::LogTimed(session, fmt::format(" User selected to {}objects to folder: {}",
                                           request.strAction, session.Shown(request.typed)));
    run.madeFolders.clear();
    DispatchByDuplicates(session, run);
    Report(session, run);
}

} // namespace tarvix::actions
