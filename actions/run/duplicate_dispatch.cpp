#include "actions/run/duplicate_dispatch.h"

#include "actions/run/duplicate_loops.h"
#include "session/prompt_id.h"
#include "session/session.h"

namespace tarvix::actions {

namespace {

using session::Session;

bool IsAutomated(const Session& session) {
    return session.state.strAction == "Automated Move";
}

void Log(Session& session, const std::string& line) {
    if (!IsAutomated(session)) session::LogTimed(session, line + "at start.");
}

void Finish(Session& session, bool marksList) {
    session.frmDialog.Hide();
    const std::string& action = session.state.strAction;
    if (marksList && (action == "Move" || action == "Automated Move")) {
        session.state.blnRedoAfterAction = true;
    }
}

// Moving never overwrites.
void RunOverwrite(Session& session) {
    Log(session, " User selected to overwrite all duplicates ");
    if (!session.state.action.blnMove) return OverwriteAllDuplicates(session);
    if (!IsAutomated(session)) {
        session.MsgBox(session::PromptId::kMoveNeverOverwrites,
                       "Overwrite can not be performed when moving files.\r\nThis will skip all "
                       "duplicates found.");
    }
    SkipAllDuplicates(session);
}

void RunAsk(Session& session) {
    Log(session, session.state.strAction == "CopyRenameAsFolderName"
                     ? " User selected to be asked when duplicates found, "
                     : " User selected to be asked when duplicates, in the destination are "
                       "found, ");
    session.state.action.bytAskAnswer = session::kAskSkip;
    Ask(session);
}

} // namespace

void DispatchByDuplicates(Session& session) {
    const auto& form = session.frmDialog;
    if (form.chkRename.Value == 1) {
        Log(session, " User selected to rename all duplicates ");
        RenameAllDuplicates(session);
    } else if (form.chkSkipAll.Value == 1) {
        Log(session, " User selected to skip all duplicates ");
        SkipAllDuplicates(session);
    } else if (form.chkOverWrite.Value == 1) {
        RunOverwrite(session);
        return Finish(session, false);
    } else if (form.chkAsk.Value == 1) {
        RunAsk(session);
    } else {
        return;
    }
    Finish(session, true);
}

} // namespace tarvix::actions
