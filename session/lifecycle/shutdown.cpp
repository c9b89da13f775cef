#include "platform/file_system.h"
#include "session/lifecycle/startup.h"
#include "session/lifecycle_events.h"
#include "session/remembered/histories.h"
#include "session/remembered/options_file.h"
#include "session/remembered/platform_file.h"
#include "session/remembered/unsaved.h"
#include "session/session.h"

namespace tarvix::lifecycle {

namespace {

using session::Session;

void CloseOtherWindows(Session& session) {
    for (fields::Form* other : session.forms.all) {
        if (other != &session.frmSearch) other->Hide();
    }
}

void HideTargetPath(fields::FrmSearch& form) {
    form.cboTargetPath.Visible = form.lblTargetPath.Visible = false;
    form.cboTargetPath.Text = "";
    form.mnuTargetPath.Enabled = false;
}

// One question to the disk, so that a folder that takes nothing is told once and not for each file.
bool TakesFiles(Session& session) {
    if (session.state.blnDataUnwritable) return false;
    const auto taken = session::TryDataFolder(session);
    if (!taken) session::TellDataUnwritable(session, taken.error());
    return taken.has_value();
}

// A start that never came to its end has read nothing that could be saved.
void SaveFiles(Session& session) {
    if (!session.state.blnStarted || !TakesFiles(session)) return;
    session::SaveSearchHistoryFile(session);
    session::SaveFolderHistoryFile2(session);
    session::SaveDestHistoryFile2(session);
    session::SaveOptionFile(session);
    session::SavePlatformFile(session);
}

// With logging off the log served this run alone.
void CloseLog(Session& session) {
    const bool isKept = session.state.options.blnFileLog || !session.log.IsOpen();
    session.log.Close(session);
    if (!isKept) session.events.Raise(session, kRecycleActionLog);
}

} // namespace

void frmSearch_Unload(Session& session) {
    // A loop that still runs below this event ends at its next object.
    session.state.blnStopClicked = session.state.blnStopAction = true;
    CloseOtherWindows(session);
    HideTargetPath(session.frmSearch);
    CloseLog(session);
    session.TellLogTrouble();
    SaveFiles(session);
    session.errorLog.Close(session);
    session.TellLogTrouble();
    session.frmSearch.Hide();
    session.state.blnEnded = true;
}

} // namespace tarvix::lifecycle
