#include "actions/request/read_request.h"

#include "actions/place/destination.h"
#include "actions/request/action_names.h"
#include "actions/request/request_checks.h"
#include "platform/native_paths.h"
#include "session/session.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvix::actions {

namespace {

using fields::FrmDialog;

template <class Choice>
Choice ChosenOf(const fields::OptionGroup& group) {
    return static_cast<Choice>(std::max(group.Chosen(), 0));
}

// The first that is set counts.
DuplicateChoice DuplicatesOf(const FrmDialog& form) {
    const std::array<std::pair<const fields::CheckBox*, DuplicateChoice>, 4> choices{
        {{&form.chkRename, DuplicateChoice::kRename},
         {&form.chkSkipAll, DuplicateChoice::kSkip},
         {&form.chkOverWrite, DuplicateChoice::kOverwrite},
         {&form.chkAsk, DuplicateChoice::kAsk}}};
    const auto chosen =
        std::ranges::find_if(choices, [](const auto& choice) { return choice.first->Value == 1; });
    return chosen == choices.end() ? DuplicateChoice::kNone : chosen->second;
}

RenameRequest RenameOf(const FrmDialog& form, const platform::NativePaths& paths) {
    return {.inserts = form.chkAdd.Value == 1,
            .find = paths.NamePart(form.txtFind.Text.Get()),
            .replace = paths.NamePart(form.txtReplace.Text.Get()),
            .onlyFirst = form.optOnceVsAll[0].Value,
            .add = paths.NamePart(form.txtAdd.Text.Get()),
            .addsAtEnd = form.chkAddEnd.Value == 1,
            .portion = ChosenOf<NamePortion>(form.optNamePortion)};
}

} // namespace

ActionRequest ReadRequest(const FrmDialog& form, const platform::NativePaths& paths,
                          std::string strAction, std::string typed) {
    ActionRequest request;
    request.isMove = IsMove(strAction);
    request.strAction = std::move(strAction);
    request.heading = form.lblMain.Caption;
    request.way = ChosenOf<Way>(form.optTo);
    request.structure = ChosenOf<Structure>(form.optStructure);
    request.typed = std::move(typed);
    request.strMultiPath = form.lstMulti.Items();
    request.levelsTyped = form.txtFolderTree.Text;
    request.levels = FolderTreeLevels(request.levelsTyped);
    request.prefixesFolders = form.chkFolderRename.Value == 1;
    if (request.way == Way::kSpecialRule) {
        if (auto rule = ValidateSpecialRule(request.typed)) request.rule = std::move(*rule);
    }
    request.duplicates = DuplicatesOf(form);
    request.renameText = paths.NamePart(form.txtRename.Text.Get());
    if (request.renameText.empty() && request.strAction == "Automated Move") {
        request.renameText = "_"; // nobody is there to type one
    }
    // Nor where the window has no box for it.
    const bool isHidden = IsRenameFromSource(request.strAction);
    if (isHidden && (request.renameText.empty() || !WhyNoName(request.renameText).empty())) {
        request.renameText = "_";
    }
    request.renamesAtEnd = form.chkRenameEnd.Value == 1;
    request.wholeNames = request.strAction == kRenameFromList && form.chkWholeNames.Value == 1;
    request.rename = RenameOf(form, paths);
    return request;
}

ActionRequest ReadRequest(const session::Session& session) {
    return ReadRequest(session.frmDialog, session.platform.paths, session.state.strAction,
                       session.frmDialog.cmbDir.Text);
}

} // namespace tarvix::actions
