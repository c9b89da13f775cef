#include "actions/request/dialog_setup.h"

#include "actions/request/action_names.h"
#include "actions/request/destination_controls.h"
#include "actions/request/multi_paths.h"
#include "actions/request/ok_button.h"
#include "actions/request/remembered_structure.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/remembered/histories.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <array>

namespace tarvix::actions {

namespace {

using session::Session;

enum class Duplicates { kNone, kWithOverwrite, kWithoutOverwrite };

// What the box for the destination holds for an action.
enum class BoxUse { kNone, kFolder, kWrittenFile, kNameList, kPrefixList, kPage };

BoxUse BoxUseOf(std::string_view action) {
    if (action == "Rename" || action == kRenameAsTitle || action.empty()) return BoxUse::kNone;
    if (action == kRenameFromList) return BoxUse::kNameList;
    if (action == kRenameByPrefix) return BoxUse::kPrefixList;
    if (action == kRenameFromLinks) return BoxUse::kPage;
    return IsTextGroup(action) ? BoxUse::kWrittenFile : BoxUse::kFolder;
}

// What the window offers for one action.
struct Setup {
    std::string_view action;
    std::array<bool, 4> to;
    bool hasDestination;
    bool hasBrowse;
    Duplicates duplicates;
    bool hasStructure;
    bool hasLevels = false;
    bool hasRename = false;
    bool hasEof = false;
    bool hasComments = false;
};

constexpr std::array<bool, 4> kNoChoice{};
constexpr std::array<bool, 4> kOnlyOne{true, false, false, false};

constexpr std::array kSetups{
    Setup{"Copy", {true, true, false, true}, true, true, Duplicates::kWithOverwrite, true},
    Setup{"Move", {true, false, true, true}, true, true, Duplicates::kWithoutOverwrite, true},
    Setup{"Rename", kNoChoice, false, false, Duplicates::kNone, false, false, true},
    Setup{"RenameAsTitle", kNoChoice, false, false, Duplicates::kNone, false},
    Setup{"RenameFromTextFile", kNoChoice, true, true, Duplicates::kNone, false},
    Setup{"RenameFromHTMLSearch", kNoChoice, true, true, Duplicates::kNone, false},
    Setup{"RenameFromSelfSearch", kNoChoice, true, true, Duplicates::kNone, false},
    Setup{"CopyRenameAsFolderName", kNoChoice, true, true, Duplicates::kWithOverwrite, false, true},
    Setup{"Names Only", kNoChoice, true, true, Duplicates::kNone, false, false, false, true, true},
    Setup{"Path and Names", kNoChoice, true, true, Duplicates::kNone, false, false, false, true,
          true},
    Setup{"Target Paths", kNoChoice, true, true, Duplicates::kNone, false, false, false, true},
    Setup{"CreateHTML", kNoChoice, true, true, Duplicates::kNone, false},
    Setup{"Create MPL From Combo Box", kNoChoice, true, true, Duplicates::kNone, false, false,
          false, true},
    Setup{"Numeric Increment", kNoChoice, true, true, Duplicates::kNone, false, false, false, true},
    Setup{"MakeFolders", kNoChoice, true, true, Duplicates::kNone, false},
    Setup{"Automated Move", kOnlyOne, true, false, Duplicates::kWithoutOverwrite, true},
    Setup{"Automated Playlist Gen", kOnlyOne, true, false, Duplicates::kWithoutOverwrite, true},
    Setup{"Automated Playlist Gen Full", kOnlyOne, true, false, Duplicates::kWithoutOverwrite,
          true},
};

const Setup& SetupOf(std::string_view action) {
    const auto found = std::ranges::find(kSetups, action, &Setup::action);
    return found == kSetups.end() ? kSetups.front() : *found;
}

// Whether the action decides by itself where it goes, with no choice of the user.
bool SetsOneLocation(const Setup& setup) {
    return setup.action == "CopyRenameAsFolderName" || setup.action == "MakeFolders" ||
           IsTextGroup(setup.action);
}

void OfferDestinations(Session& session, const Setup& setup) {
    auto& form = session.frmDialog;
    for (int i = 0; i < 4; ++i) {
        form.optTo[i].Visible = setup.to[static_cast<std::size_t>(i)];
    }
    const int chosen = form.optTo.Chosen();
    const bool isOffered = chosen >= 0 && setup.to[static_cast<std::size_t>(chosen)];
    if (SetsOneLocation(setup) || (setup.to != kNoChoice && !isOffered)) form.optTo.Choose(0);
    form.cmbDir.Visible = setup.hasDestination;
    form.cmdBrowse.Visible = setup.hasBrowse;
    for (fields::Control* control : std::initializer_list<fields::Control*>{
             &form.chkFolderRename, &form.filMultiPath, &form.lstMulti}) {
        control->Visible = false;
    }
    form.txtFolderTree.Visible = form.lblFolderTree.Visible = setup.hasLevels;
    if (setup.hasLevels) form.lblFolderTree.Caption = "Number of folder names to use: ";
    form.txtFolderTree.ToolTipText =
        setup.hasLevels
            ? "Start folder count form the right, but name will be in correct path order."
            : "";
    form.OKButton.Visible = true;
    if (!IsCopyOrMove(setup.action)) return;
    // What was typed for one location is no partial path.
    if (form.optTo[1].Value && form.cmbDir.Text->find(':') != std::string::npos) {
        form.cmbDir.Text = "";
    }
    ShowDestinationFields(session);
}

void OfferDuplicates(Session& session, const Setup& setup) {
    auto& form = session.frmDialog;
    const bool hasFrame = setup.duplicates != Duplicates::kNone;
    const bool hasOverwrite = setup.duplicates == Duplicates::kWithOverwrite;
    form.fraDuplicates.Visible = hasFrame;
    for (fields::Control* control :
         std::initializer_list<fields::Control*>{&form.chkAsk, &form.chkSkipAll, &form.chkRename}) {
        control->Visible = hasFrame;
    }
    form.chkOverWrite.Visible = hasOverwrite;
    if (hasFrame && !hasOverwrite && form.chkOverWrite.Value == 1) {
        form.chkOverWrite.Value = 0;
        form.chkSkipAll.Value = 1;
    }
    form.chkAsk.Enabled = !session.state.options.blnAutoMode;
    if (hasFrame && !form.chkAsk.Enabled && form.chkAsk.Value == 1) {
        form.chkAsk.Value = 0;
        (setup.action == "Copy" ? form.chkRename : form.chkSkipAll).Value = 1;
    }
    ShowDuplicateFields(session);
    if (hasFrame) return;
    for (fields::Control* control : std::initializer_list<fields::Control*>{
             &form.chkRenameBeg, &form.chkRenameEnd, &form.lblRename, &form.txtRename}) {
        control->Visible = false;
    }
}

void OfferStructure(Session& session, const Setup& setup) {
    auto& form = session.frmDialog;
    form.fraStructure.Visible = setup.hasStructure;
    for (int i = 0; i < form.optStructure.Count(); ++i) {
        form.optStructure[i].Visible = setup.hasStructure;
    }
    if (!session.state.blnPlayListMode) return;
    form.optStructure[2].Visible = false;
    if (form.optStructure[2].Value) form.optStructure.Choose(0);
}

void OfferOthers(Session& session, const Setup& setup) {
    auto& form = session.frmDialog;
    form.fraRenameOnly.Visible = setup.hasRename;
    for (fields::Control* control : std::initializer_list<fields::Control*>{
             &form.chkFindReplace, &form.chkAdd, &form.optNamePortion[0], &form.optNamePortion[1],
             &form.optNamePortion[2]}) {
        control->Visible = setup.hasRename;
    }
    ShowRenameFields(session);
    form.chkAddEOF.Visible = setup.hasEof;
    form.chkWholeNames.Visible = form.cmdEditNames.Visible = setup.action == kRenameFromList;
    form.chkComments.Visible = form.chkFindSimilar.Visible = setup.hasComments;
    form.chkRelative.Visible = setup.hasComments && session.state.strFileKind == "Create M3u";
    form.txtDeviation.Visible = setup.hasComments && form.chkFindSimilar.Value == 1;
}

bool IsFileThere(Session& session, std::string_view path) {
    const auto facts = session.files().Facts(path);
    return facts && !facts->IsFolder();
}

// What was used last may be the file of another action.
void TakeNewestDestination(Session& session) {
    auto& form = session.frmDialog;
    if (!form.cmbDir.Text->empty() || !form.optTo[0].Value) return;
    const std::string newest = session::NewestDestination(session);
    const BoxUse use = BoxUseOf(session.state.strAction);
    const bool fits = newest.empty() || use == BoxUse::kNone || use == BoxUse::kWrittenFile ||
                      IsFileThere(session, newest) == (use != BoxUse::kFolder);
    if (fits) form.cmbDir.Text = newest;
}

std::string OkCaption(const Session& session) {
    const std::string& action = session.state.strAction;
    const auto count = session.selection->lngSelTop + 1;
    const bool isCopy = action == "Copy" || action == "CopyRenameAsFolderName";
    if (!isCopy && action != "Move" && !action.starts_with("Rename")) return "&OK";
    return fmt::format("&{} {} {}",
                       isCopy             ? "Copy"
                       : action == "Move" ? "Move"
                                          : "Rename",
                       text::Format(count, "#,##0"), count == 1 ? "object" : "objects");
}

// A batch brings its own destination and duplicate choice, and nobody presses OK.
void RunForBatch(Session& session) {
    auto& form = session.frmDialog;
    const auto& batch = session.state.batch;
    form.cmbDir.Text = batch.strDestination;
    const std::array<std::pair<bool, fields::CheckBox*>, 4> choices{
        {{batch.blnOverwrite, &form.chkOverWrite},
         {batch.blnSkip, &form.chkSkipAll},
         {batch.blnAsk, &form.chkAsk},
         {batch.blnRename, &form.chkRename}}};
    const auto forced =
        std::ranges::find_if(choices, [](const auto& choice) { return choice.first; });
    if (forced != choices.end()) {
        for (const auto& [wanted, box] : choices) {
            box->Value = box == forced->second ? 1 : 0;
        }
    }
    OKButton_Click(session);
}

void SetUpWindow(Session& session) {
    auto& form = session.frmDialog;
    auto& state = session.state;
    form.lblStatus.Caption = "";
    state.blnRedoAfterAction = state.blnActionCancelled = false;
    RefreshMultiPathList(session);
    form.lblNumOfFilesSelected.Caption = session.frmSearch.lblNumOfFilesSelected.Caption.Get();
    form.lblNumOfDirsSelected.Caption = session.frmSearch.lblNumOfDirsSelected.Caption.Get();
    form.lstMulti.Header =
        fmt::format("{} to File Locations.  (Double click to clear.)", state.strAction);
    const Setup& setup = SetupOf(state.strAction);
    OfferDestinations(session, setup);
    TakeNewestDestination(session);
    OfferDuplicates(session, setup);
    OfferStructure(session, setup);
    OfferOthers(session, setup);
    form.cmdPreview.Visible = IsCopyOrMove(setup.action) || setup.hasRename || setup.hasLevels ||
                              IsRenameFromSource(setup.action);
    form.OKButton.Caption = OkCaption(session);
}

} // namespace

void ShowBusy(Session& session, bool busy) {
    auto& form = session.frmDialog;
    for (fields::Control* control : std::initializer_list<fields::Control*>{
             &form.OKButton, &form.CancelButton, &form.cmdPreview, &form.cmdBrowse, &form.cmbDir,
             &form.chkWholeNames, &form.cmdEditNames, &form.chkAddEOF, &form.txtFolderTree,
             &form.fraDuplicates, &form.fraStructure, &form.fraRenameOnly}) {
        control->Enabled = !busy;
    }
    form.optTo.SetEnabled(!busy);
    form.lblBusy.Visible = busy;
    form.cmdStop.Caption = "Stop";
    form.cmdStop.Visible = busy;
}

void BackToWindow(Session& session) {
    session.Repaint();
    ShowBusy(session, false);
    frmDialog_Activate(session);
}

void ClearForeignDestination(Session& session) {
    const auto use = [](std::string_view action) {
        const BoxUse of = BoxUseOf(action);
        return of == BoxUse::kNone ? BoxUse::kFolder : of;
    };
    const auto& state = session.state;
    if (use(state.strPrevAction) != use(state.strAction)) session.frmDialog.cmbDir.Text = "";
}

void OpenDialog(Session& session) {
    session.frmDialog.optStructure.Choose(0);
    ShowBusy(session, false);
    frmDialog_Activate(session);
    OfferStructureOf(session);
}

void frmDialog_Activate(Session& session) {
    auto& state = session.state;
    if (state.blnPreloadDialog) {
        session.frmDialog.Hide();
        state.strLastForm = "frmDialog";
        return;
    }
    SetUpWindow(session);
    if (state.strAction == "Automated Move") RunForBatch(session);
    if (state.strAction.starts_with("Automated Playlist Gen")) OKButton_Click(session);
}

} // namespace tarvix::actions
