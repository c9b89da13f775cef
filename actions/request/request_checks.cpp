#include "actions/request/request_checks.h"

#include "actions/place/action_run.h"
#include "actions/request/dialog_setup.h"
#include "actions/run/report.h"
#include "platform/dir.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::size_t kShortestWithExtension = 5;

} // namespace

bool IsExistingFile(Session& session, const std::string& path) {
    const std::string found = platform::DirName(session.files(), path, platform::kDirFiles);
    return found == "." || (!found.empty() && text::EqualNoCase(found, text::FileNameOf(path)));
}

void Refuse(Session& session, PromptId id, std::string_view told) {
    session.MsgBox(id, told);
    BackToWindow(session);
}

bool Confirm(Session& session, PromptId id, std::string_view question) {
    if (session.MsgBox(id, question) == session::kOk) return true;
    BackToWindow(session);
    return false;
}

bool HasSelection(Session& session) {
    if (session.selection->lngSelTop >= 0) return true;
    Refuse(session, PromptId::kNothingSelected, "nothing was selected");
    return false;
}

std::string ExtensionWarning(std::string_view destination) {
    const bool mayHaveOne = text::Length(destination) >= kShortestWithExtension &&
                            destination.find('.') != destination.npos;
    if (!mayHaveOne) return {};
    return fmt::format("It appears you did not select a destination folder.\r\n{} may have an "
                       "extension.\r\n\r\n",
                       destination);
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
    if (request.duplicates != DuplicateChoice::kRename || !request.renameText.empty()) return true;
    Refuse(session, PromptId::kRenameTextMissing,
           "There is no text to add to the names of duplicates, so that they could not be "
           "renamed.\r\n\r\nType one, for example _, or choose something else to be done "
           "with duplicates.");
    return false;
}

void RefuseLevels(Session& session, PromptId id, std::string_view told) {
    session.frmDialog.Focus = &session.frmDialog.txtFolderTree;
    Refuse(session, id, told);
}

void Report(Session& session, const ActionRun& run) {
    ReportActionResult(session, run);
    SetBusy(session, false);
}

} // namespace tarvix::actions
