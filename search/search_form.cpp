#include "search/search_form.h"

#include "results/selection.h"
#include "results/sorting.h"
#include "search/left_out.h"
#include "search/unread.h"
#include "session/lifecycle_events.h"
#include "session/search_lock.h"
#include "session/session.h"

#include <fmt/core.h>

#include <initializer_list>

namespace tarvix::search {

namespace {

using session::Session;

void ShowBatch(Session& session) {
    const auto& state = session.state;
    auto& form = session.frmSearch;
    if (!state.IsBatch()) return;
    form.cmdNext.Visible = true;
    form.lblDetailedStatus.Visible = true;
    form.lblDetailedStatus.ForeColor = fields::kGreen;
    form.chkNot.Value = 0;
    form.chkNot.Visible = false;
    form.lblDetailedStatus.Caption =
        state.blnAutoMove
            ? fmt::format(
                  "**** - Automated Move - **** Search file: {}   Delete empty folders = {}",
                  session.Shown(state.strBatchFile), state.blnBatchDeleteEmpty ? "True" : "False")
            : fmt::format("**** - Automated PlayList Generation - **** Search file: {}",
                          session.Shown(state.strBatchFile));
}

void ShowIdle(Session& session, std::string_view status) {
    auto& form = session.frmSearch;
    form.lblStatus.Caption = std::string(status);
    form.lblStatus.Visible = true;
    form.lblCurrentFolder.Visible = false;
    form.lblSearchFor.Visible = false;
    form.lstMain.Enabled = true;
    form.cmdStop.Visible = session.state.IsBatch(); // what follows can be stopped, too
    RestoreNotBox(session);
}

void SearchStoppedPrematurely(Session& session) {
    session::UnlockAfterSearch(session);
    ShowIdle(session, "Search stopped prematurely");
    session.frmSearch.lblTotalSize.Visible = true;
}

void AutomatedNext(Session& session) {
    session::UnlockAfterSearch(session);
    ShowIdle(session, "Search skipped");
}

void NormalEnd(Session& session) {
    session::LogTimed(session, " Normal end to search");
    ShowIdle(session, "");
    session.frmSearch.lblTotalSize.Visible = true;
}

void EnableAfterSearch(fields::FrmSearch& form, Kind kind) {
    for (fields::MenuEntry* entry :
         {&form.mnuRun, &form.mnuActions, &form.mnuTools_CreateMPLfromCombo,
          &form.mnuTools_NameVersionSort, &form.mnuTools_RemoveUnAndMove, &form.mnuTools_BypassMPL,
          &form.mnuTools_NewSearchFor}) {
        entry->Enabled = true;
    }
    form.mnuTools_FolderSummary.Enabled = kind != Kind::kFolders && kind != Kind::kEmptyFolders;
    for (fields::Control* shown : std::initializer_list<fields::Control*>{
             &form.fraSelection, &form.fraStandardAction, &form.cmdDoVersionSort,
             &form.cmdDeleteSelected, &form.cmdRenameSelected}) {
        shown->Visible = true;
    }
}

} // namespace

void ClearForSearch(Session& session) {
    auto& form = session.frmSearch;
    session.state.blnStopClicked = session.state.blnSkipSearch = false;
    if (session.state.blnPlayListMode) session.events.Raise(session, lifecycle::kLeavePlayList);
    results::ClearList(session);
    HideUnread(session);
    HideLeftOut(session);
    form.lblCurrentFolder.Caption = "";
    form.lblSearchFor.Caption = "";
    session::LockForSearch(session);
}

void ShowSearching(Session& session, const SearchRequest& request) {
    auto& form = session.frmSearch;
    form.lblStatus.Caption = request.isRepeat ? "Repeat searching" : "Searching";
    for (fields::Control* shown : std::initializer_list<fields::Control*>{
             &form.lblStatus, &form.lblCurrentFolder, &form.lblSearchFor, &form.cmdStop}) {
        shown->Visible = true;
    }
    form.lstMain.Enabled = false;
    ShowBatch(session);
    form.lblTotalSize.Visible = false;
}

void ShowEnd(Session& session, const WalkEnd& end) {
    if (end) return NormalEnd(session);
    switch (end.error()) {
    case Interruption::kStopped:
        return SearchStoppedPrematurely(session);
    case Interruption::kSkipped:
        return AutomatedNext(session);
    }
}

void CommonEnd(Session& session, const SearchRequest& request) {
    auto& form = session.frmSearch;
    form.lblNumOfFilesFound.Caption = std::to_string(session.state.lngFilesFound);
    form.lblNumOfDirsFound.Caption = std::to_string(session.state.lngFoldersFound);
    session::UnlockAfterSearch(session);
    EnableAfterSearch(form, request.kind);
    for (fields::Label* label :
         {&form.lblNumOfFilesFound, &form.lblNumOfFilesSelected, &form.lblNumOfDirsAttrib,
          &form.lblNumOfFilesAttrib, &form.lblNumOfDirsFound, &form.lblNumOfDirsSelected,
          &form.lblTotalSize, &form.lblGroups}) {
        label->ForeColor = fields::kBlue;
    }
    results::ShowGroups(session, 1);
    ShowUnread(session);
    ShowLeftOut(session);
}

void RestoreNotBox(Session& session) {
    auto& form = session.frmSearch;
    form.cmdNext.Visible = false;
    if (form.cmbSearchFor.Text.Get().find_first_of("[#|") == std::string::npos) {
        form.chkNot.Visible = true;
    }
}

} // namespace tarvix::search
