#include "actions/run/duplicate_dispatch.h"

#include "actions/place/action_run.h"
#include "actions/run/duplicate_loops.h"
#include "session/prompt_id.h"
#include "session/session.h"

#include <fmt/core.h>

namespace tarvix::actions {

namespace {

using session::Session;

bool IsAutomated(const ActionRun& run) {
    return run.request.strAction == "Automated Move";
}

void Log(Session& session, const ActionRun& run, std::string_view line) {
    if (!IsAutomated(run)) session::LogTimed(session, fmt::format("{}at start.", line));
}

void Finish(Session& session, bool marksList) {
    session.frmDialog.Hide();
    if (marksList) session.state.blnRedoAfterAction = true;
}

// Moving never overwrites.
void RunOverwrite(Session& session, ActionRun& run) {
    Log(session, run, " User selected to overwrite all duplicates ");
    if (!run.request.isMove) return OverwriteAllDuplicates(session, run);
    if (!IsAutomated(run)) {
        session.MsgBox(session::PromptId::kMoveNeverOverwrites,
                       "Overwrite can not be performed when moving files.\r\nThis will skip all "
                       "duplicates found.");
    }
    SkipAllDuplicates(session, run);
}

void RunAsk(Session& session, ActionRun& run) {
    Log(session, run,
        run.request.strAction == "CopyRenameAsFolderName"
            ? " User selected to be asked when duplicates found, "
            : " User selected to be asked when duplicates, in the destination are "
              "found, ");
    run.bytAskAnswer = session.forms.frmAsk.Answer = kAskSkip;
    Ask(session, run);
}

} // namespace

void DispatchByDuplicates(Session& session, ActionRun& run) {
    switch (run.request.duplicates) {
    case DuplicateChoice::kNone:
        return;
    case DuplicateChoice::kRename:
        Log(session, run, " User selected to rename all duplicates ");
        RenameAllDuplicates(session, run);
        break;
    case DuplicateChoice::kSkip:
        Log(session, run, " User selected to skip all duplicates ");
        SkipAllDuplicates(session, run);
        break;
    case DuplicateChoice::kOverwrite:
        RunOverwrite(session, run);
        return Finish(session, false);
    case DuplicateChoice::kAsk:
        RunAsk(session, run);
        break;
    }
    Finish(session, run.request.isMove);
}

} // namespace tarvix::actions
