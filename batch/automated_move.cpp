#include "batch/automated_move.h"

#include "batch/ask_move_batch.h"
#include "batch/batch_prompts.h"
#include "batch/step_lines.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "platform/try.h"
#include "session/errors.h"
#include "session/prompt_id.h"
#include "session/search_lock.h"
#include "session/session.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tarvix::batch {

namespace {

using platform::Result;
using session::Session;

constexpr std::string_view kAction = "Automated Move";
constexpr std::string_view kRoutine = "mnuTools_AutomatedMove_Click";
constexpr int kFiles = 0; // of optFilesVsDirs
constexpr int kEmptyFolders = 4;

bool IsStopped(const session::SessionState& state) {
    return state.blnStopClicked || state.blnStopAction;
}

// From the first list to the last folder that is deleted.
class MoveRun {
  public:
    MoveRun(Session& session, const MoveBatch& batch)
        : session_(session), batch_(batch), prompts_(session),
          lines_(session.files(), batch.searchList, batch.destinationList) {}

    BatchOutcome Run() {
        bool goesOn = RunLists();
        if (goesOn && batch_.thenFiles) {
            session_.frmSearch.optFilesVsDirs.Choose(kFiles);
            goesOn = RunLists();
        }
        if (goesOn && batch_.emptiesFolders) EmptyFolders();
        outcome_.answered = prompts_.Answered();
        return std::move(outcome_);
    }

  private:
    // Whether it came to the end of the lists.
    bool RunLists() {
        if (auto done = GoDownLists(); !done) outcome_.error = std::move(done.error());
        return !outcome_.error && !outcome_.isStopped;
    }

    Result<void> GoDownLists() {
        TX_TRY(lines_.Restart());
        while (true) {
            TX_TRY_ASSIGN(const std::optional<StepLine> line, lines_.Next());
            if (line) RunStep(*line);
            session_.Yield();
            outcome_.isStopped = IsStopped(session_.state);
            if (outcome_.isStopped || (!line && !session_.state.blnSkipSearch)) return {};
            // After `cmdNext` it isn't looked whether the mark was read.
            if (!line) return lines_.ReadPastMark();
        }
    }

    void RunStep(const StepLine& line) {
        auto& state = session_.state;
        state.strAction = kAction;
        state.batch = {.strDestination = session_.platform.paths.ToDrive(line.destination),
                       .blnSkip = !batch_.renamesDuplicates,
                       .blnRename = batch_.renamesDuplicates};
        state.lastAction = {};
        session_.frmSearch.cmbSearchFor.Text = line.search;
        session_.Raise(session_.frmSearch.cmdSearch, "Click");
        const auto& totals = state.lastAction;
        outcome_.steps.push_back(
            {.search = line.search,
             .destination = line.destination,
             .done = totals.done,
             .skipped = totals.skipped,
             .duplicates = totals.duplicates,
             .failed = totals.failed,
             .copiedOnly = totals.copiedOnly,
             .notReached = std::max<std::int64_t>(
                 totals.wanted - totals.done - totals.skipped - totals.failed, 0),
             .isSkipped = state.blnSkipSearch,
             .wrong = state.batch.strWrong});
    }

    // Each pass deletes the folders that the last one has emptied.
    void EmptyFolders() {
        auto& form = session_.frmSearch;
        form.cmbSearchFor.Text = "";
        session_.state.blnBatchDeleteEmpty = false;
        form.optFilesVsDirs.Choose(kEmptyFolders);
        session_.state.blnRepeatDeleteEmpty = true;
        form.chkIncludeSubFolders.Value = 1;
        form.chkRepeatSearch.Value = 1;
        session_.Raise(form.cmdSearch, "Click");
        outcome_.isStopped = IsStopped(session_.state);
    }

    Session& session_;
    const MoveBatch& batch_;
    BatchPrompts prompts_;
    StepLines lines_;
    BatchOutcome outcome_;
};

std::string_view EndText(const BatchOutcome& outcome) {
    if (outcome.isStopped) return "Automated move stopped by user.";
    return outcome.HasErrors()
               ? "Automated move is complete, but there were errors. View current action log."
               : "Automated move is complete.";
}

} // namespace

bool BatchOutcome::HasErrors() const {
    if (error) return true;
    for (const BatchStep& step : steps) {
        const std::int64_t undone =
            step.failed + step.copiedOnly + step.notReached + step.skipped - step.duplicates;
        if (!step.wrong.empty() || undone > 0) return true;
    }
    return false;
}

BatchOutcome RunAutomatedMove(Session& session, const MoveBatch& batch) {
    auto& state = session.state;
    state.blnAutoMove = true;
    state.blnBatchDeleteEmpty = batch.emptiesFolders;
    state.blnStopClicked = state.blnStopAction = false;
    session.frmSearch.mnuOptions.Enabled = false;
    BatchOutcome outcome = MoveRun(session, batch).Run();
    state.blnAutoMove = state.blnBatchDeleteEmpty = false;
    if (outcome.error) {
        session::TellUnexpected(session, *outcome.error, kRoutine, batch.searchList, "frmSearch");
    }
    session::UnlockAfterSearch(session);
    session.frmSearch.mnuOptions.Enabled = true;
    return outcome;
}

Result<std::vector<PlannedStep>> PlanAutomatedMove(Session& session, const MoveBatch& batch) {
    const BatchPrompts prompts(session);
    auto& form = session.frmSearch;
    session.state.strAction = kAction; // whose searches ask nothing
    StepLines lines(session.files(), batch.searchList, batch.destinationList);
    TX_TRY(lines.Restart());
    std::vector<PlannedStep> plan;
    while (true) {
        TX_TRY_ASSIGN(const std::optional<StepLine> line, lines.Next());
        if (!line) return plan;
        form.cmbSearchFor.Text = line->search;
        session.Raise(form.cmdSearch, "Click");
        if (IsStopped(session.state)) return plan;
        const std::string folder = session.platform.paths.ToDrive(line->destination);
        plan.push_back({.search = line->search,
                        .destination = line->destination,
                        .matches = session.state.lngFilesFound + session.state.lngFoldersFound,
                        .isThere = platform::GetFolder(session.files(), folder).has_value()});
    }
}

void mnuTools_AutomatedMove_Click(Session& session) {
    session.state.strAction = kAction;
    session::LogTimed(session, " User selected to do a batch search and move.");
    const auto batch = AskMoveBatch(session);
    if (!batch) return;
    const BatchOutcome outcome = RunAutomatedMove(session, *batch);
    if (outcome.error) return;
    session.MsgBox(session::PromptId::kBatchMoveEnded, EndText(outcome));
}

void AddBatchEvents(session::EventTable& events) {
    events.On("frmSearch.mnuTools_AutomatedMove_Click", mnuTools_AutomatedMove_Click);
}

} // namespace tarvix::batch
