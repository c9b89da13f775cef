#include "forms/destination_examples.h"

#include "actions/place/destination.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/native_entry.h"
#include "session/session.h"
#include "text/paths.h"

namespace tarvix::forms {

namespace {

using session::Session;

// Sets the request to the first object and destination, and sets back all that changes meanwhile.
class FirstObject {
  public:
    explicit FirstObject(Session& session)
        : session_(session), action_(session.state.action),
          structure_(session.frmDialog.optStructure.Chosen()),
          typed_(session.frmDialog.cmbDir.Text) {
        auto& action = session.state.action;
        action.lngIndex = 0;
        action.intMultiIndex = 1;
        action.strFolderPrefix.clear();
        auto& form = session.frmDialog;
        form.cmbDir.Text =
            text::CleanSpacesInPath(session::DriveForm(session.platform.paths, typed_), true);
        if (form.optTo[2].Value && form.chkFolderRename.Value == 1) {
            actions::BuildFolderPrefix(session);
        }
    }
    ~FirstObject() {
        session_.state.action = action_;
        session_.frmDialog.optStructure.Choose(structure_);
        session_.frmDialog.cmbDir.Text = typed_;
    }
    FirstObject(const FirstObject&) = delete;
    FirstObject& operator=(const FirstObject&) = delete;

  private:
    Session& session_;
    session::ActionState action_;
    int structure_;
    std::string typed_;
};

bool HasMultiPath(const Session& session) {
    return session.state.action.strMultiPath.size() > 1;
}

// A place without a drive is no place yet; a rule depends on what lies on the disk.
bool CanTell(const Session& session) {
    const auto& form = session.frmDialog;
    switch (form.optTo.Chosen()) {
    case 0:
        return !text::PathRoot(form.cmbDir.Text.Get()).empty();
    case 1:
        return HasMultiPath(session) &&
               !text::PathRoot(session.state.action.strMultiPath[1]).empty();
    case 2:
        return true;
    default:
        return false;
    }
}

} // namespace

std::array<std::string, 4> DestinationExamples(Session& session) {
    std::array<std::string, 4> examples;
    const auto& selection = *session.selection;
    if (selection.lngSelTop < 0 || text::PathRoot(selection.strSelPath[0]).empty()) return examples;
    const FirstObject first(session);
    if (!CanTell(session)) return examples;
    for (int i = 0; i < session.frmDialog.optStructure.Count(); ++i) {
        session.frmDialog.optStructure.Choose(i);
        examples[static_cast<std::size_t>(i)] =
            actions::ComputeDestination(session, selection.strSelName[0], selection.strSelPath[0]);
    }
    return examples;
}

std::string ExampleKey(const Session& session) {
    const auto& form = session.frmDialog;
    const auto& selection = *session.selection;
    std::string key = session.state.strAction;
    for (const std::string& part :
         {form.cmbDir.Text.Get(), std::to_string(form.optTo.Chosen()),
          form.txtFolderTree.Text.Get(), form.chkFolderRename.ValueText(),
          HasMultiPath(session) ? session.state.action.strMultiPath[1] : std::string(),
          std::to_string(form.optStructure.Chosen()),
          selection.lngSelTop < 0 ? std::string() : selection.strSelPath[0]}) {
        key.append(1, '\n').append(part);
    }
    return key;
}

} // namespace tarvix::forms
