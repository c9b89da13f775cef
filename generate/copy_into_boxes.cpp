#include "generate/copy_into_boxes.h"

#include "results/selection.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/user_input.h"
#include "text/paths.h"

namespace tarvix::generate {

namespace {

using session::Session;

// Whether something is selected; otherwise says so.
bool TakeSelection(Session& session, std::string_view action) {
    session.state.strAction = action;
    results::BuildFileArray(session);
    if (session.selection->lngSelTop >= 0) return true;
    session.MsgBox(session::PromptId::kNothingSelected, "Nothing is selected.");
    return false;
}

// As if a user had typed it and left the box.
void Enter(Session& session, fields::ComboBox& box, std::string text) {
    box.Text = std::move(text);
    session.Raise(box, "Change");
    session::UserLeave(session, box);
}

} // namespace

void mnuTools_BypassMPL_Click(Session& session) {
    if (!TakeSelection(session, "ByPass MPL")) return;
    const auto& selection = *session.selection;
    std::string folders;
    for (std::size_t i = 0; i < selection.strSelActualPath.size(); ++i) {
        const std::string_view path = selection.strSelActualPath[i];
        folders += selection.blnSelIsFile[i] ? text::ParentFolder(path) : path;
        folders += '|';
    }
    Enter(session, session.frmSearch.cmbDir, std::move(folders));
}

void mnuTools_NewSearchFor_Click(Session& session) {
    if (!TakeSelection(session, "New Search For")) return;
    std::string names;
    for (const std::string_view name : session.selection->strSelName) {
        names.append(name).append("|");
    }
    Enter(session, session.frmSearch.cmbSearchFor, std::move(names));
}

} // namespace tarvix::generate
