#include "session/histories.h"
#include "session/lifecycle/startup.h"
#include "session/options_file.h"
#include "session/platform_file.h"
#include "session/session.h"

namespace tarvix::lifecycle {

namespace {

using session::Session;

void CloseOtherWindows(Session& session) {
    for (forms::Form* other : session.forms.all) {
        if (other != &session.frmSearch) other->Hide();
    }
}

void HideTargetPath(forms::FrmSearch& form) {
    form.cboTargetPath.Visible = form.lblTargetPath.Visible = false;
    form.cboTargetPath.Text = "";
    form.mnuTargetPath.Enabled = false;
}

// A start that never came to its end has read nothing that could be saved.
void SaveFiles(Session& session) {
    if (!session.state.blnStarted) return;
    session::SaveSearchHistoryFile(session);
    session::SaveFolderHistoryFile2(session);
    session::SaveDestHistoryFile2(session);
    session::SaveOptionFile(session);
    session::SavePlatformFile(session);
}

} // namespace

void frmSearch_Unload(Session& session) {
    // A loop that still runs below this event ends at its next object.
    session.state.blnStopClicked = session.state.blnStopAction = true;
    CloseOtherWindows(session);
    HideTargetPath(session.frmSearch);
    session.log.Close(session);
    SaveFiles(session);
    session.errorLog.Close(session);
    session.frmSearch.Hide();
    session.state.blnEnded = true;
}

} // namespace tarvix::lifecycle
