#include "search/request.h"

#include "results/result_list.h"
#include "results/selection.h"
#include "results/sorting.h"
#include "search/browse.h"
#include "search/criteria_boxes.h"
#include "search/default_folders.h"
#include "search/locations.h"
#include "search/search_strings.h"
#include "search/walk.h"
#include "session/lifecycle_events.h"
#include "session/prompt_id.h"
#include "session/remembered/histories.h"
#include "session/search_lock.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <array>
#include <string>

namespace tarvix::search {

namespace {

using session::PromptId;
using session::Session;

constexpr std::array<std::string_view, 5> kKinds{"files", "empty files", "files and folders",
                                                 "folders", "empty folders"};

constexpr std::string_view kNoMoreDeleted =
    "No more of the empty folders could be deleted. See the action log for what was skipped.";

bool IsChecked(const fields::CheckBox& box) {
    return box.Value == 1;
}

// Asks twice whether the repeat search may delete what it finds.
void AskRepeatDelete(Session& session) {
    const auto& form = session.frmSearch;
    if (session.state.blnRepeatDeleteEmpty) return;
    if (!IsChecked(form.chkIncludeSubFolders) || !IsChecked(form.chkRepeatSearch) ||
        form.optFilesVsDirs.Chosen() != 4) {
        return;
    }
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

// Reads the boxes and brings the form into the searching state.
void PrepareForm(Session& session) {
    auto& state = session.state;
    auto& form = session.frmSearch;
    state.blnScanVirtualStore = state.blnRecycleAllowed = false;
    std::string searchFor = form.cmbSearchFor.Text;
    while (searchFor.starts_with("  ")) {
        searchFor.erase(0, 2);
    }
    form.cmbSearchFor.Text = searchFor;
    state.strTargetSearch = text::Trim(form.cboTargetPath.Text.Get()).empty()
                                ? std::string{}
                                : text::Upper(form.cboTargetPath.Text.Get());
    AskRepeatDelete(session);
    form.cmbDir.Text =
        std::string(text::StripLeadingBar(text::StripTrailingBar(form.cmbDir.Text.Get())));
    state.lngRefreshEvery = 999;
    state.blnStopClicked = state.blnSkipSearch = false;
    results::ClearList(session);
    form.lblCurrentFolder.Caption = "";
    form.lblSearchFor.Caption = "";
    session::LockForSearch(session);
}

Outcome TestFlags(const session::SessionState& state) {
    if (state.blnErrorPreparingForSearch || state.blnStopClicked) return Outcome::kStopped;
    return state.blnSkipSearch ? Outcome::kSkipped : Outcome::kDone;
}

void SetCriteria(Session& session) {
    auto& state = session.state;
    const auto& form = session.frmSearch;
    state.intCriteriaMode = form.chkSize.Value + (IsChecked(form.chkDate) ? 2 : 0);
    state.intCriteriaCode =
        state.intCriteriaMode == 3 ? form.cboSize.ChosenData() + form.cboDate.ChosenData() : 0;
}

void ShowBatch(Session& session) {
    const auto& state = session.state;
    auto& form = session.frmSearch;
    if (!state.blnAutoMove && !state.blnAutoPlayList) return;
    form.cmdNext.Visible = true;
    form.lblDetailedStatus.Visible = true;
    form.lblDetailedStatus.ForeColor = fields::kGreen;
    form.chkNot.Value = 0;
    form.chkNot.Visible = false;
    form.lblDetailedStatus.Caption =
        state.blnAutoMove
            ? "**** - Automated Move - **** Search file: " + state.strBatchFile +
                  "   Delete empty folders = " + (state.blnBatchDeleteEmpty ? "True" : "False")
            : "**** - Automated PlayList Generation - **** Search file: " + state.strBatchFile;
}

void ShowSearching(Session& session) {
    auto& form = session.frmSearch;
    form.lblStatus.Caption = IsChecked(form.chkRepeatSearch) ? "Repeat searching" : "Searching";
    for (fields::Control* shown : std::initializer_list<fields::Control*>{
             &form.lblStatus, &form.lblCurrentFolder, &form.lblSearchFor, &form.cmdStop}) {
        shown->Visible = true;
    }
    form.lstMain.Enabled = false;
    ShowBatch(session);
    form.lblTotalSize.Visible = false;
}

void LogRequest(Session& session) {
    const auto& form = session.frmSearch;
    session::LogTimed(
        session, " User selected to search for " +
                     std::string(KindText(form.optFilesVsDirs.Chosen())) +
                     (IsChecked(form.chkIncludeSubFolders) ? " and search subfolders" : "") +
                     " with '" + form.cmbSearchFor.Text.Get() + "' in " + form.cmbDir.Text.Get());
}

// Locations and strings from their boxes.
Outcome ParseRequest(Session& session) {
    auto& form = session.frmSearch;
    if (text::Trim(form.cmbDir.Text.Get()).empty()) {
        form.cmbDir.Text =
            std::string(text::StripTrailingSlash(session.state.options.strDefSearchFolder.front()));
    }
    ParseSearchFolder(session, form.cmbDir.Text.Get());
    ParseSearchFor(session, form.cmbSearchFor.Text.Get());
    const Outcome outcome = TestFlags(session.state);
    if (outcome == Outcome::kDone) {
        session::UpdateFolderHistory(session);
        session::UpdateSearchHistory(session);
    }
    return outcome;
}

// Everything up to the walk; anything but kDone ends the search before it began.
Outcome Prepare(Session& session) {
    PrepareForm(session);
    session.state.blnErrorPreparingForSearch = false;
    ValidateSizeBoxes(session);
    ValidateDateBoxes(session);
    if (const Outcome outcome = TestFlags(session.state); outcome != Outcome::kDone) {
        session::UnlockAfterSearch(session);
        return outcome;
    }
    SetCriteria(session);
    ShowSearching(session);
    results::BuildFileArray(session);
    session.Yield();
    if (const Outcome outcome = TestFlags(session.state); outcome != Outcome::kDone) return outcome;
    return ParseRequest(session);
}

// What a search leaves behind on the form, however it ended.
void ShowEnded(Session& session, std::string_view status, bool showTotal) {
    auto& form = session.frmSearch;
    form.lblStatus.Caption = std::string(status);
    form.lblStatus.Visible = true;
    if (showTotal) form.lblTotalSize.Visible = true;
    form.lblCurrentFolder.Visible = false;
    form.lblSearchFor.Visible = false;
    form.lstMain.Enabled = true;
    form.cmdStop.Visible = false;
    RestoreNotBox(session);
}

void SearchStoppedPrematurely(Session& session) {
    session::UnlockAfterSearch(session);
    ShowEnded(session, "Search stopped prematurely", true);
}

void AutomatedNext(Session& session) {
    session::UnlockAfterSearch(session);
    ShowEnded(session, "Search skipped", false);
}

void NormalEnd(Session& session) {
    session::LogTimed(session, " Normal end to search");
    ShowEnded(session, "", true);
}

void EnableAfterSearch(fields::FrmSearch& form) {
    for (fields::MenuEntry* entry :
         {&form.mnuRun, &form.mnuActions, &form.mnuTools_CreateMPLfromCombo,
          &form.mnuTools_NameVersionSort, &form.mnuTools_RemoveUnAndMove, &form.mnuTools_BypassMPL,
          &form.mnuTools_NewSearchFor}) {
        entry->Enabled = true;
    }
    form.mnuTools_FolderSummary.Enabled = form.optFilesVsDirs.Chosen() <= 2;
    for (fields::Control* shown : std::initializer_list<fields::Control*>{
             &form.fraSelection, &form.fraStandardAction, &form.cmdDoVersionSort,
             &form.cmdDeleteSelected, &form.cmdRenameSelected}) {
        shown->Visible = true;
    }
}

void CommonEnd(Session& session) {
    auto& form = session.frmSearch;
    form.lblNumOfFilesFound.Caption = std::to_string(session.state.lngFilesFound);
    form.lblNumOfDirsFound.Caption = std::to_string(session.state.lngFoldersFound);
    session::UnlockAfterSearch(session);
    EnableAfterSearch(form);
    for (fields::Label* label :
         {&form.lblNumOfFilesFound, &form.lblNumOfFilesSelected, &form.lblNumOfDirsAttrib,
          &form.lblNumOfFilesAttrib, &form.lblNumOfDirsFound, &form.lblNumOfDirsSelected,
          &form.lblTotalSize, &form.lblGroups}) {
        label->ForeColor = fields::kBlue;
    }
    results::ShowGroups(session, 1);
}

// Runs what a repeat or a batch wants next; true when that has taken over.
bool RunFollowUp(Session& session, Outcome outcome) {
    auto& state = session.state;
    auto& form = session.frmSearch;
    if (state.blnRepeatDeleteEmpty && outcome == Outcome::kStopped) {
        // A stop must not delete what was found so far, nor let the next search do so unasked.
        state.blnRepeatDeleteEmpty = state.blnErrorPreparingForSearch;
    } else if (state.blnRepeatDeleteEmpty) {
        if (form.lblNumOfDirsFound.Caption.Get() == "0") {
            state.blnRepeatDeleteEmpty = false;
            session.MsgBox(PromptId::kRepeatDeleteDone,
                           "All empty folders, matching search criteria, have been deleted.");
            return true;
        }
        results::cmdSelectAll_Click(session);
        session.Raise(form.cmdDeleteSelected, "Click");
        if (state.blnActionCancelled || state.lastAction.done == 0) {
            // What can't be deleted now would be found again for ever.
            state.blnRepeatDeleteEmpty = false;
            if (!state.blnActionCancelled)
                session.MsgBox(PromptId::kRepeatDeleteStuck, kNoMoreDeleted);
            return true;
        }
        form.lblStatus.Caption = "Repeat Searching";
        session.Repaint();
        state.blnRedoAfterAction = state.blnRedoNow = false;
        cmdSearch_Click(session);
        return true;
    }
    if (state.blnAutoMove || state.blnAutoPlayList) {
        results::cmdSelectAll_Click(session);
        if (state.blnAutoMove) {
            session.Raise(form.cmdMoveSelected, "Click");
        } else {
            session.events.Raise(session, state.blnAutoPlayListLocal
                                              ? "frmSearch.mnuNamesM3u_Click"
                                              : "frmSearch.mnuPathNamesM3u_Click");
        }
        session.Repaint();
        state.blnRedoAfterAction = state.blnRedoNow = false;
        return false;
    }
    if (!state.blnStopClicked) results::cmdSelectNone_Click(session);
    return false;
}

void GiveFocusBack(fields::FrmSearch& form) {
    form.Focus = form.cmdSearch.Enabled ? static_cast<fields::Control*>(&form.cmbSearchFor)
                                        : static_cast<fields::Control*>(&form.chkRepeatSearch);
}

} // namespace

std::string_view KindText(int kind) {
    return kind >= 0 && kind < static_cast<int>(kKinds.size())
               ? kKinds[static_cast<std::size_t>(kind)]
               : std::string_view{};
}

void cmdSearch_Click(Session& session) {
    if (session.state.blnSearching) return;
    session.state.blnSearching = true;
    Outcome outcome = Prepare(session);
    const bool hasWalked = outcome == Outcome::kDone;
    if (hasWalked) {
        LogRequest(session);
        outcome = Walk(session).Run();
    }
    session.state.blnSearching = false;
    switch (outcome) {
    case Outcome::kStopped:
        SearchStoppedPrematurely(session);
        break;
    case Outcome::kSkipped:
        AutomatedNext(session);
        break;
    case Outcome::kDone:
        NormalEnd(session);
        break;
    }
    if (hasWalked) {
        CommonEnd(session);
        results::ArrangeFoundRows(session);
    }
    if (RunFollowUp(session, outcome)) return;
    session.Yield();
    GiveFocusBack(session.frmSearch);
}

void cmdStop_Click(Session& session) {
    if (session.state.blnRecycling) {
        session.state.blnStopAction = true;
        return;
    }
    session.state.blnStopClicked = true;
    results::BuildFileArray(session);
    session::LogTimed(session, " User selected to stop search.");
    session::UnlockAfterSearch(session);
    session.frmSearch.Focus = &session.frmSearch.cmbSearchFor;
}

void cmdNext_Click(Session& session) {
    session.state.blnSkipSearch = true;
    session::LogTimed(session, " User selected to skip to next automated search.");
}

void RestoreNotBox(Session& session) {
    auto& form = session.frmSearch;
    form.cmdNext.Visible = false;
    if (form.cmbSearchFor.Text.Get().find_first_of("[#|") == std::string::npos) {
        form.chkNot.Visible = true;
    }
}

void AddSearchEvents(session::EventTable& events) {
    events.On("frmSearch.cmdSearch_Click", cmdSearch_Click);
    events.On("frmSearch.cmdStop_Click", cmdStop_Click);
    events.On("frmSearch.cmdNext_Click", cmdNext_Click);
    for (const std::string form : {"frmForChar", "frmTrailingSp", "frmAllUsers"}) {
        events.On(form + ".cmdOK_Click", [form](Session& session, const session::EventArgs&) {
            session.forms.Find(form)->Hide();
        });
    }
    events.On(std::string(lifecycle::kBrowseNormally),
              [](Session& session, const session::EventArgs&) { ChooseBrowseMode(session, 0); });
    events.On(std::string(lifecycle::kPaintAttributeBoxes), PaintAttributeBoxes);
    events.On(std::string(lifecycle::kListDefaultFolders), BuildDefaultFolderList);
    AddCriteriaEvents(events);
    AddBrowseEvents(events);
}

} // namespace tarvix::search
