#include "options/search_folders.h"

#include "options/form_values.h"
#include "session/event_table.h"
#include "session/native_entry.h"
#include "session/paths/env_variables.h"
#include "session/prompt_id.h"
#include "session/remembered/options_file.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::options {

namespace {

using session::Session;

fields::OfferedFolder* Chosen(fields::FrmOptions& form) {
    const int chosen = form.optDefSearchFolder.Chosen();
    return chosen < 0 ? nullptr : &form.folders[static_cast<std::size_t>(chosen)];
}

void optDefSearchFolder_Click(Session& session, const session::EventArgs& /*args*/) {
    ShowChosenFolder(session);
}

void txtDefFolder_Change(Session& session) {
    auto& form = session.forms.frmOptions;
    auto* folder = Chosen(form);
    if (folder == nullptr) return;
    folder->folder = session::DriveForm(session.platform.paths, form.txtDefFolder.Text.Get());
}

void txtDefFolderTitle_Change(Session& session) {
    auto& form = session.forms.frmOptions;
    auto* folder = Chosen(form);
    if (folder == nullptr) return;
    folder->title = form.txtDefFolderTitle.Text;
    form.optDefSearchFolder[form.optDefSearchFolder.Chosen()].Caption = FolderCaption(*folder);
}

void cmdBrowse_Click(Session& session) {
    auto& form = session.forms.frmOptions;
    auto* chosen = Chosen(form);
    if (chosen == nullptr) return;
    const std::string before = session::RemoveEnvVarAndRestorePath(session, chosen->folder);
    const bool isOne = before.find('|') == before.npos;
    const std::string folder =
        session.PickFolder(session::PromptId::kPickDefaultFolder, isOne ? before : "");
    if (folder.empty()) return;
    chosen->folder = folder;
    ShowChosenFolder(session);
}

// Without blanks beside "|" and "\\", and without empty pieces. A "/" behind a variable is no part
// of a name.
std::string Cleaned(std::string_view folders) {
    std::string cleaned;
    const std::string list = text::CleanSpacesInPath(folders, false);
    for (const std::string_view piece : text::Split(list, '|')) {
        if (piece.empty()) continue;
        cleaned.append(cleaned.empty() ? "" : "|").append(piece);
    }
    std::ranges::replace(cleaned, '/', '\\');
    return cleaned;
}

} // namespace

void ShowChosenFolder(Session& session) {
    auto& form = session.forms.frmOptions;
    const auto* folder = Chosen(form);
    form.txtDefFolder.Enabled = form.txtDefFolderTitle.Enabled = form.cmdBrowse.Enabled =
        folder != nullptr;
    form.txtDefFolder.Text =
        folder == nullptr ? ""
                          : session::EntryShown(session, session.frmSearch.cmbDir, folder->folder);
    form.txtDefFolderTitle.Text = folder == nullptr ? "" : folder->title;
}

void CleanFolders(Session& session) {
    auto& form = session.forms.frmOptions;
    for (fields::OfferedFolder& folder : form.folders) {
        folder.folder = Cleaned(folder.folder);
    }
    auto& first = form.folders.front().folder;
    if (first.empty()) first = session::DocumentsFolder(session);
}

bool CheckFolders(Session& session) {
    auto& form = session.forms.frmOptions;
    for (std::size_t i = 0; i < form.folders.size(); ++i) {
        if (form.folders[i].folder.find('[') == std::string::npos) continue;
        form.tbsOptions.Select(fields::kDefaultsPage, true);
        form.optDefSearchFolder.Choose(static_cast<int>(i));
        ShowChosenFolder(session);
        form.Focus = &form.txtDefFolder;
        session.MsgBox(session::PromptId::kOptionInvalid,
                       fmt::format("A default search folder can't have a \"[\" in its path, since "
                                   "the options file begins the title there:\r\n\r\n{}\r\n\r\n"
                                   "Name the folder above it, or rename it.",
                                   session.Shown(form.folders[i].folder)));
        return false;
    }
    return true;
}

void AddSearchFolderEvents(session::EventTable& events) {
    events.On("frmOptions.optDefSearchFolder_Click", optDefSearchFolder_Click);
    events.On("frmOptions.txtDefFolder_Change", txtDefFolder_Change);
    events.On("frmOptions.txtDefFolderTitle_Change", txtDefFolderTitle_Change);
    events.On("frmOptions.cmdBrowse_Click", cmdBrowse_Click);
}

} // namespace tarvix::options
