#include "actions/request/start_action.h"

#include "actions/place/action_run.h"
#include "actions/place/recycle.h"
#include "actions/request/action_names.h"
#include "actions/request/delete_request.h"
#include "actions/request/destination_controls.h"
#include "actions/request/dialog_setup.h"
#include "actions/request/multi_paths.h"
#include "actions/request/ok_button.h"
#include "actions/request/outcome_page.h"
#include "actions/request/preview.h"
#include "actions/request/rename_in_place.h"
#include "actions/request/start_sources.h"
#include "actions/run/ask_flow.h"
#include "actions/run/summary.h"
#include "results/outcome_groups.h"
#include "results/selection.h"
#include "session/lifecycle_events.h"
#include "session/prompt_id.h"
#include "session/remembered/histories.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kCopyWarning =
    "ARE YOU REALLY SURE???\r\n\r\nCopying multiple folders in this mode, may make many duplicate "
    "copies!";
constexpr std::string_view kMoveWarning =
    "ARE YOU REALLY SURE???\r\n\r\nMoving multiple folders in this mode, may have unexpected "
    "results!\r\n\r\nIf any folders you selected are subfolders of other folders selected,\r\nthe "
    "results will depend on which one is moved first!!\r\n\r\nAlso files with HIDDEN or SYSTEM "
    "Attributes may get moved!";

// Folders taken together with what lies in them may have effects that surprise.
bool ConfirmFolders(Session& session) {
    const auto& form = session.frmSearch;
    const bool isMixedMode =
        form.chkIncludeSubFolders.Value == 1 && form.optFilesVsDirs.Chosen() == 2;
    if (!isMixedMode) return true;
    const auto& isFile = session.selection->blnSelIsFile;
    const auto folders = std::ranges::count(isFile, false);
    const auto files = std::ranges::count(isFile, true);
    const std::string& action = session.state.strAction;
    std::string_view warning;
    if (action == "Copy" && (folders >= 2 || (folders >= 1 && files >= 1))) warning = kCopyWarning;
    if (action == "Move" && folders > 1) warning = kMoveWarning;
    return warning.empty() ||
           session.MsgBox(PromptId::kFoldersWithContents, warning) == session::kOk;
}

// The list may be empty now: at least the status line tells what was done.
void TellSummary(Session& session) {
    const auto& totals = session.state.lastAction;
    auto& status = session.frmSearch.lblStatus;
    const bool isSilent = totals.done + totals.skipped + totals.failed == 0 ||
                          session.state.blnActionCancelled || !status.Caption->empty();
    if (isSilent) return;
    const std::string_view verb = results::DoneVerb(session.state.strAction);
    if (!verb.empty()) status.Caption = SummaryText(totals, verb);
}

void ShowDialog(Session& session) {
    auto& state = session.state;
    const bool isBatch = state.IsBatch();
    const OutcomeWatch watch(session);
    if (isBatch) session.frmDialog.Show();
    session::OpenDestHistoryFile2(session);
    if (state.blnEnded) return;
    OpenDialog(session);
    if (!isBatch || session.frmDialog.IsShown()) session.ShowModal(PromptId::kActionWindow);
    session::SaveDestHistoryFile2(session);
    state.strPrevAction = state.strAction;
    state.strPrevFileKind = state.strFileKind;
    if (state.strAction == "Move" && !state.blnActionCancelled) {
        state.strRememberedDestination.clear();
    }
    if (state.blnPlayListMode) session.events.Raise(session, "frmSearch.ReloadPlayList");
    session.events.Raise(session, "frmSearch.Form_Activate");
    if (isBatch) return;
    TellSummary(session);
    OfferOutcome(session, watch);
}

struct Start {
    std::string_view action;
    std::string_view heading;
};

void StartAction(Session& session, const Start& start) {
    auto& state = session.state;
    auto& form = session.frmDialog;
    const bool isCopyOrMove = start.action != "Rename";
    if (start.action != "Move" || !state.IsBatch()) state.strAction = start.action;
    state.blnActionCancelled = false;
    state.lastAction = {};
    // What it told of the action before is not what this one does.
    if (!state.IsBatch()) session.frmSearch.lblStatus.Caption = "";
    if (isCopyOrMove) session.forms.frmOverrideDialog.Answer = kOverrideNo;
    session.forms.frmOverrideRecycleFail.Answer = kOverrideNo;
    results::BuildFileArray(session);
    if (isCopyOrMove && !ConfirmFolders(session)) {
        state.blnActionCancelled = true;
        return;
    }
    // A batch notes in the log that its step found nothing.
    if (session.selection->lngSelTop < 0 && !state.IsBatch()) {
        session.MsgBox(PromptId::kNothingSelected, "Nothing is selected.");
        return;
    }
    form.lblMain.Caption = std::string(start.heading);
    if (start.action != "Move" || form.optTo[0].Value) {
        form.txtFolderTree.Visible = form.lblFolderTree.Visible = false;
    }
    ClearForeignDestination(session);
    if (!state.strRememberedDestination.empty()) form.cmbDir.Text = state.strRememberedDestination;
    session::LogTimed(session, fmt::format(" User clicked on the {} Button which opened the Action "
                                           "form. ",
                                           start.action));
    ShowDialog(session);
}

void AddWindowEvents(session::EventTable& events) {
    events.On("frmDialog.OKButton_Click", OKButton_Click);
    events.On("frmDialog.CancelButton_Click", CancelButton_Click);
    events.On("frmDialog.cmdStop_Click", [](Session& session, const session::EventArgs&) {
        auto& state = session.state;
        state.blnStopNow = state.blnStopNow || state.blnStopAction;
        state.blnStopAction = true;
        session.frmDialog.cmdStop.Caption = "Stop Now";
    });
}

} // namespace

void cmdCopySelected_Click(Session& session) {
    StartAction(session, {"Copy", "Copy Files or Folders to:"});
}

void cmdMoveSelected_Click(Session& session) {
    StartAction(session, {"Move", "Move Files and\\or Folders to:"});
}

void cmdRenameSelected_Click(Session& session) {
    StartAction(session, {"Rename", "Rename Objects Only"});
}

void AddActionEvents(session::EventTable& events) {
    events.On(std::string(lifecycle::kActivateDialog), frmDialog_Activate);
    events.On(std::string(lifecycle::kRecycleActionLog), [](Session& session, const auto&) {
        RecycleOne(session, session.state.strActionLogFile);
    });
    events.On(std::string(lifecycle::kOpenDialog), ShowDialog);
    events.On(std::string(session::kRecycleFile),
              [](Session& session, const session::EventArgs& args) {
                  const std::string path(args.path);
                  RecycleObjects(session, {{path, path}}, false);
              });
    events.On("frmSearch.cmdCopySelected_Click", cmdCopySelected_Click);
    events.On("frmSearch.cmdMoveSelected_Click", cmdMoveSelected_Click);
    events.On("frmSearch.cmdRenameSelected_Click", cmdRenameSelected_Click);
    AddWindowEvents(events);
    AddAskEvents(events);
    AddDestinationEvents(events);
    AddMultiPathEvents(events);
    AddDeleteEvents(events);
    AddPreviewEvents(events);
    AddSourceEvents(events);
    AddOutcomeEvents(events);
    AddRenameInPlaceEvents(events);
}

} // namespace tarvix::actions
