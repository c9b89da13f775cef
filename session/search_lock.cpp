#include "session/search_lock.h"

#include "session/session.h"

#include <initializer_list>

namespace tarvix::session {

namespace {

void SetCriteriaEnabled(fields::FrmSearch& form, bool enabled) {
    for (fields::Control* control : std::initializer_list<fields::Control*>{
             &form.cmbSearchFor,    &form.cboTargetPath, &form.cmbDir,
             &form.cboSize,         &form.txtSize1,      &form.txtSize2,
             &form.cboDate,         &form.chkNot,        &form.chkIncludeSubFolders,
             &form.chkReadOnly,     &form.chkHidden,     &form.chkSystem,
             &form.chkArchive,      &form.chkAlias,      &form.chkCompressed,
             &form.chkOneEach,      &form.chkSize,       &form.chkDate,
             &form.cmdClearFolders, &form.cmdSearch,     &form.cmdBrowse,
             &form.mnuBrowse,       &form.mnuTools,      &form.mnuActions}) {
        control->Enabled = enabled;
    }
    form.txtDate1.Enabled = form.txtDate2.Enabled = enabled;
    form.optFilesVsDirs.SetEnabled(enabled);
}

bool IsFolderKind(const fields::FrmSearch& form) {
    return form.optFilesVsDirs.Chosen() >= 3;
}

} // namespace

void LockForSearch(Session& session) {
    SetCriteriaEnabled(session.frmSearch, false);
    session.frmSearch.cmdStop.Visible = true;
}

void UnlockAfterSearch(Session& session) {
    auto& form = session.frmSearch;
    session.forms.frmProgress.Hide();
    if (session.state.IsBatch()) return;
    SetCriteriaEnabled(form, true);
    form.chkIncludeSubFolders.Enabled = session.state.options.blnAllowUserSelectSubfolders;
    form.mnuTools_DeleteFolderContentsOnly.Enabled =
        form.chkIncludeSubFolders.Value == 0 || IsFolderKind(form);
}

} // namespace tarvix::session
