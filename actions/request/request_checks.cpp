#include "actions/request/request_checks.h"

#include "actions/request/dialog_setup.h"
#include "platform/dir.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

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
    return "It appears you did not select a destination folder.\r\n" + std::string(destination) +
           " may have an extension.\r\n\r\n";
}

std::string SameLocationWarning(Session& session) {
    const auto& form = session.frmDialog;
    if (!form.optStructure[1].Value || session.selection->lngSelTop < 0) return {};
    const auto root = text::Upper(text::Left(session.selection->strSelPath.front(), 2));
    const auto& multi = session.state.action.strMultiPath;
    const bool isSame =
        root == text::Upper(text::Left(form.cmbDir.Text.Get(), 2)) ||
        (form.optTo[1].Value && multi.size() > 1 && root == text::Upper(text::Left(multi[1], 2)));
    if (!isSame) return {};
    return "You are about to copy file(s)\\folder(s) \r\non to the very same location(s) as the "
           "original(s).\r\n\r\n";
}

bool HasRenameText(Session& session) {
    const auto& form = session.frmDialog;
    if (form.chkRename.Value != 1 || !form.txtRename.Text->empty()) return true;
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

} // namespace tarvix::actions
