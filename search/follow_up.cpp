#include "search/follow_up.h"

#include "results/selection.h"
#include "search/search_request.h"
#include "session/prompt_id.h"
#include "session/session.h"

#include <string_view>

namespace tarvix::search {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kNoMoreDeleted =
    "No more of the empty folders could be deleted. See the action log for what was skipped.";

void ForgetRedo(session::SessionState& state) {
    state.blnRedoAfterAction = state.blnRedoNow = false;
}

Next RunRepeatDelete(Session& session) {
    auto& state = session.state;
    if (state.lngFoldersFound == 0) {
        state.blnRepeatDeleteEmpty = false;
        session.MsgBox(PromptId::kRepeatDeleteDone,
                       "All empty folders, matching search criteria, have been deleted.");
        return Next::kEnd;
    }
    results::cmdSelectAll_Click(session);
    session.Raise(session.frmSearch.cmdDeleteSelected, "Click");
    state.lngEmptyDeleted += state.lastAction.done;
    if (state.blnActionCancelled || state.lastAction.done == 0) {
        // What can't be deleted now would be found again for ever.
        state.blnRepeatDeleteEmpty = false;
        if (!state.blnActionCancelled) session.MsgBox(PromptId::kRepeatDeleteStuck, kNoMoreDeleted);
        return Next::kEnd;
    }
    session.frmSearch.lblStatus.Caption = "Repeat Searching";
    session.Repaint();
    ForgetRedo(state);
    return Next::kSearchAgain;
}

void RunBatch(Session& session) {
    const auto& state = session.state;
    results::cmdSelectAll_Click(session);
    if (state.blnAutoMove) {
        session.Raise(session.frmSearch.cmdMoveSelected, "Click");
    } else {
        session.events.Raise(session, state.blnAutoPlayListLocal
                                          ? "frmSearch.mnuNamesM3u_Click"
                                          : "frmSearch.mnuPathNamesM3u_Click");
    }
    session.Repaint();
    ForgetRedo(session.state);
}

} // namespace

void AskRepeatDelete(Session& session) {
    const auto& form = session.frmSearch;
    if (form.chkIncludeSubFolders.Value != 1 || form.chkRepeatSearch.Value != 1 ||
        form.optFilesVsDirs.Chosen() != static_cast<int>(Kind::kEmptyFolders)) {
        // What was agreed to for another search is no consent for this one.
        session.state.blnRepeatDeleteEmpty = false;
        return;
    }
    if (session.state.blnRepeatDeleteEmpty) return;
    if (session.MsgBox(
            PromptId::kRepeatDelete,
            "Would you like every empty folder, that matches the search criteria, in the "
            "search folder automatically deleted?") != session::kYes) {
        return;
    }
    if (session.MsgBox(PromptId::kRepeatDeleteSure,
                       "Are you sure?,\r\n\r\nThis will continue repeat searching and deleting "
                       "until none are found.") == session::kYes) {
        session.state.blnRepeatDeleteEmpty = true;
    }
}

Next RunFollowUp(Session& session, const SearchRequest* request, const WalkEnd& end) {
    auto& state = session.state;
    const bool isStopped = !end && end.error() == Interruption::kStopped;
    // A refusal or a stop must not delete what stands in the list, nor let the next search do so
    // unasked; and only empty folders were agreed to.
    const bool mayDelete = request && request->kind == Kind::kEmptyFolders && !isStopped;
    if (state.blnRepeatDeleteEmpty && mayDelete) return RunRepeatDelete(session);
    state.blnRepeatDeleteEmpty = false;
    if (state.IsBatch() && end) RunBatch(session); // not of a search that was cut short
    if (!state.blnStopClicked) results::cmdSelectNone_Click(session);
    return Next::kRest;
}

} // namespace tarvix::search
