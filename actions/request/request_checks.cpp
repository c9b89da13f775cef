#include "actions/request/request_checks.h"

#include "actions/place/action_run.h"
#include "actions/request/dialog_setup.h"
#include "actions/run/report.h"
#include "platform/dir.h"
#include "platform/names.h"
#include "results/selection.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/name_characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::size_t kShortestWithExtension = 5;

std::string CharacterWord(char c) {
    return text::IsControl(c) ? "a control character" : std::string(1, c);
}

using fields::FrmDialog;

constexpr std::array kAboutDestination{
    PromptId::kDestinationMissing,  PromptId::kDestinationIsFile,
    PromptId::kDestinationHasMarks, PromptId::kDestinationNoPath,
    PromptId::kDestinationRefuses,  PromptId::kDestinationOneCharacter,
    PromptId::kTextFileInvalid,     PromptId::kTextFileIsFolder,
    PromptId::kFoldersPlaceInvalid, PromptId::kFoldersPlaceIsFile,
    PromptId::kFoldersPlaceMissing, PromptId::kSourceFileMissing,
    PromptId::kRuleInvalid};

// The box that a refusal is about; null for none.
fields::Control* BoxOf(FrmDialog& form, PromptId id) {
    const bool isRename = form.fraRenameOnly.Visible;
    if (std::ranges::find(kAboutDestination, id) != kAboutDestination.end()) return &form.cmbDir;
    if (id == PromptId::kFolderTreeMissing || id == PromptId::kFolderNamesMissing) {
        return &form.txtFolderTree;
    }
    if (id == PromptId::kRenameTextMissing) return &form.txtRename;
    if (id != PromptId::kNamePartInvalid) return nullptr;
    if (!isRename) return &form.txtRename;
    return form.chkAdd.Value == 1 ? &form.txtAdd : &form.txtReplace;
}

// A rule is looked at when its characters are replaced.
bool HasStrayColon(Way way, std::string_view typed) {
    if (way == Way::kSpecialRule) return false;
    const std::size_t last = typed.rfind(':');
    const bool isDrive = last == 1 && way != Way::kMultipleLocations;
    return last != typed.npos && !isDrive;
}

} // namespace

bool IsExistingFile(Session& session, const std::string& path) {
    const std::string found = platform::DirName(session.files(), path, platform::kDirFiles);
    return found == "." || (!found.empty() && text::EqualNoCase(found, text::FileNameOf(path)));
}

void Refuse(Session& session, PromptId id, std::string_view told) {
    session.MsgBox(id, told);
    BackToWindow(session);
    if (fields::Control* box = BoxOf(session.frmDialog, id)) session.frmDialog.Focus = box;
}

bool Confirm(Session& session, PromptId id, std::string_view question, const PlainWords& plain) {
    const bool isPlain = session::SpeaksPlainly(session);
    const int answer = isPlain ? session.MsgBox(id, question, plain.question, plain.verb)
                               : session.MsgBox(id, question);
    if (answer == session::kOk) return true;
    BackToWindow(session);
    return false;
}

bool HasSelection(Session& session) {
    if (session.selection->lngSelTop >= 0) return true;
    Refuse(session, PromptId::kNothingSelected, "nothing was selected");
    return false;
}

std::string ExtensionWarning(const Session& session, std::string_view destination) {
    const bool mayHaveOne = text::Length(destination) >= kShortestWithExtension &&
                            destination.find('.') != destination.npos;
    if (!mayHaveOne) return {};
    return fmt::format("It appears you did not select a destination folder.\r\n{} may have an "
                       "extension.\r\n\r\n",
                       session.Shown(destination));
}

std::string SameLocationWarning(const Session& session, const ActionRequest& request) {
    if (request.structure != Structure::kDriveMirror || session.selection->lngSelTop < 0) return {};
    const auto rootOf = [](std::string_view path) { return text::Upper(text::Left(path, 2)); };
    const auto root = rootOf(session.selection->strSelPath.front());
    const auto& listed = request.strMultiPath;
    const bool isSame =
        root == rootOf(request.typed) || (request.way == Way::kMultipleLocations &&
                                          !listed.empty() && root == rootOf(listed.front()));
    if (!isSame) return {};
    return "You are about to copy file(s)\\folder(s) \r\non to the very same location(s) as the "
           "original(s).\r\n\r\n";
}

bool HasRenameText(Session& session, const ActionRequest& request) {
    const bool mayRename = request.duplicates == DuplicateChoice::kRename ||
                           request.duplicates == DuplicateChoice::kAsk;
    if (mayRename && !FitsName(session, request.renameText)) return false;
    if (request.duplicates != DuplicateChoice::kRename || !request.renameText.empty()) return true;
    Refuse(session, PromptId::kRenameTextMissing,
           "There is no text to add to the names of duplicates, so that they could not be "
           "renamed.\r\n\r\nType one, for example _, or choose something else to be done "
           "with duplicates.");
    return false;
}

std::string WhyNoName(std::string_view part) {
    const auto wrong = std::ranges::find_if(
        part, [](char c) { return text::IsControl(c) || text::kNeverInNames.contains(c); });
    if (wrong == part.end()) return {};
    return fmt::format("\"{}\" can't become part of a name, as no name may hold {}.\r\n\r\nType "
                       "it without that character.",
                       platform::ForDisplay(part), CharacterWord(*wrong));
}

bool FitsName(Session& session, std::string_view part) {
    const std::string wrong = WhyNoName(part);
    if (!wrong.empty()) Refuse(session, PromptId::kNamePartInvalid, wrong);
    return wrong.empty();
}

bool IsPath(Session& session, const ActionRequest& request, std::string_view typed) {
    const std::string_view marks = request.way == Way::kSpecialRule ? "/\"?<>" : "/\"?<>*|";
    const auto wrong = std::ranges::find_if(
        typed, [marks](char c) { return text::IsControl(c) || marks.contains(c); });
    std::string told;
    if (wrong != typed.end()) {
        told = fmt::format("no folder in a path with \\ between its folders can hold {}",
                           CharacterWord(*wrong));
    } else if (HasStrayColon(request.way, typed)) {
        told = "a : can only stand behind the letter of a drive";
    }
    if (told.empty()) return true;
    Refuse(session, PromptId::kDestinationNoPath,
           fmt::format("{} can't be used as a destination, as {}.\r\n\r\nChange it, or type the "
                       "whole path with / between its folders.",
                       typed, told));
    return false;
}

void RefuseLevels(Session& session, PromptId id, std::string_view told) {
    session.frmDialog.Focus = &session.frmDialog.txtFolderTree;
    Refuse(session, id, told);
}

void Report(Session& session, const ActionRun& run) {
    ReportActionResult(session, run);
    ShowBusy(session, false);
}

} // namespace tarvix::actions
