#include "forms/destination_examples.h"

#include "actions/place/destination.h"
#include "actions/request/read_request.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/native_entry.h"
#include "session/session.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::forms {

namespace {

using actions::ActionRequest;
using actions::Structure;
using actions::Way;
using session::Session;

// What OK would make of the window now, as far as its text alone tells.
ActionRequest PresentRequest(const Session& session) {
    const auto& form = session.frmDialog;
    return actions::ReadRequest(
        form, session.platform.paths, session.state.strAction,
        text::CleanSpacesInPath(session::DriveForm(session.platform.paths, form.cmbDir.Text.Get()),
                                true));
}

// A place without a drive is no place yet; a rule depends on what lies on the disk.
bool CanTell(const ActionRequest& request) {
    if (request.way == Way::kUpFolderTree) return true;
    return request.way != Way::kSpecialRule &&
           !text::PathRoot(actions::RootPlace(request, 0)).empty();
}

} // namespace

std::array<std::string, 4> DestinationExamples(const Session& session) {
    std::array<std::string, 4> examples;
    const auto& selection = *session.selection;
    if (selection.lngSelTop < 0 || text::PathRoot(selection.strSelPath[0]).empty()) return examples;
    ActionRequest request = PresentRequest(session);
    if (!CanTell(request)) return examples;
    const actions::Object first = actions::ObjectAt(selection, 0);
    for (std::size_t i = 0; i < examples.size(); ++i) {
        request.structure = static_cast<Structure>(i);
        examples[i] = actions::ComputeDestination(request, first, 0).path;
    }
    return examples;
}

std::string ExampleKey(const Session& session) {
    const auto& form = session.frmDialog;
    const auto& listed = form.lstMulti.Items();
    const auto& selection = *session.selection;
    return fmt::format("{}\n{}\n{}\n{}\n{}\n{}\n{}\n{}", session.state.strAction,
                       form.cmbDir.Text.Get(), form.optTo.Chosen(), form.txtFolderTree.Text.Get(),
                       form.chkFolderRename.ValueText(), listed.empty() ? "" : listed.front(),
                       form.optStructure.Chosen(),
                       selection.lngSelTop < 0 ? "" : selection.strSelPath[0]);
}

} // namespace tarvix::forms
