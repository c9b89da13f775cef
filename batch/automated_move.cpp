#include "batch/automated_move.h"

#include "batch/batch_prompts.h"
#include "batch/batch_scope.h"
#include "batch/step_lines.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "platform/try.h"
#include "session/errors.h"
#include "session/session.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tarvix::batch {

namespace {

using platform::Result;
using session::Session;

constexpr std::string_view kRoutine = "mnuTools_AutomatedMove_Click";
constexpr int kFiles = 0; // of optFilesVsDirs
constexpr int kEmptyFolders = 4;

// How many lines the list has; 0 for one that can't be read, which the run will find out.
std::int64_t LinesOf(Session& session, std::string_view list) {
    const auto length = MeasureList(session.files(), list, ListMarks::kEnd);
    return length ? length->entries : 0;
}

// What was done to what the last search had found.
BatchStep StepOf(const session::SessionState& state, const StepLine& line) {
    const auto& totals = state.lastAction;
    const std::int64_t reached = totals.done + totals.skipped + totals.failed;
    return {.search = line.search,
            .destination = line.destination,
            .done = totals.done,
            .skipped = totals.skipped,
            .duplicates = totals.duplicates,
            .failed = totals.failed,
            .copiedOnly = totals.copiedOnly,
            .notReached = std::max<std::int64_t>(totals.wanted - reached, 0),
            .unread = static_cast<std::int64_t>(state.unread.All().size()),
            .isSkipped = state.blnSkipSearch,
            .wrong = state.batch.strWrong};
}

// From the first list to the last folder that is deleted.
class MoveRun {
  public:
    MoveRun(Session& session, const MoveBatch& batch)
        : session_(session), batch_(batch), prompts_(session),
          lines_(session.files(), batch.searchList, batch.destinationList),
          count_(LinesOf(session, batch.searchList)) {}

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
        line_ = 0;
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
        ShowStep(session_, "Moving", ++line_, count_, line.search, line.destination);
        state.strAction = kMoveAction;
        state.batch = {.strDestination = session_.platform.paths.ToDrive(line.destination),
                       .blnSkip = !batch_.renamesDuplicates,
                       .blnRename = batch_.renamesDuplicates};
        state.lastAction = {};
        session_.frmSearch.cmbSearchFor.Text = line.search;
        session_.Raise(session_.frmSearch.cmdSearch, "Click");
        outcome_.steps.push_back(StepOf(state, line));
    }

    // Each pass deletes the folders that the last one has emptied.
    void EmptyFolders() {
        auto& form = session_.frmSearch;
        auto& state = session_.state;
        form.lblBatch.Caption = "Deleting empty folders";
        form.cmbSearchFor.Text = "";
        state.blnBatchDeleteEmpty = false;
        form.optFilesVsDirs.Choose(kEmptyFolders);
        state.blnRepeatDeleteEmpty = true;
        state.lngEmptyDeleted = 0;
        form.chkIncludeSubFolders.Value = 1;
        form.chkRepeatSearch.Value = 1;
        session_.Raise(form.cmdSearch, "Click");
        outcome_.isStopped = IsStopped(state);
        outcome_.emptied = state.lngEmptyDeleted;
        if (!outcome_.isStopped) outcome_.stillThere = state.lngFoldersFound;
    }

    Session& session_;
    const MoveBatch& batch_;
    BatchPrompts prompts_;
    StepLines lines_;
    std::int64_t count_;
    std::int64_t line_ = 0;
    BatchOutcome outcome_;
};

BatchOutcome RunLocked(Session& session, const MoveBatch& batch) {
    const BatchScope scope(session, &session::SessionState::blnAutoMove);
    session.state.blnBatchDeleteEmpty = batch.emptiesFolders;
    BatchOutcome outcome = MoveRun(session, batch).Run();
    session.state.blnBatchDeleteEmpty = false;
    return outcome;
}

// One line of a plan: what is found, on the disk as it stands.
PlannedStep Plan(Session& session, const StepLine& line) {
    session.frmSearch.cmbSearchFor.Text = line.search;
    session.Raise(session.frmSearch.cmdSearch, "Click");
    const std::string folder = session.platform.paths.ToDrive(line.destination);
    return {.search = line.search,
            .destination = line.destination,
            .matches = session.state.lngFilesFound + session.state.lngFoldersFound,
            .isThere = platform::GetFolder(session.files(), folder).has_value()};
}

} // namespace

BatchOutcome RunAutomatedMove(Session& session, const MoveBatch& batch) {
    BatchOutcome outcome = RunLocked(session, batch);
    if (outcome.error) {
        session::TellUnexpected(session, *outcome.error, kRoutine, batch.searchList, "frmSearch");
    }
    return outcome;
}

Result<std::vector<PlannedStep>> PlanAutomatedMove(Session& session, const MoveBatch& batch) {
    const BatchPrompts prompts(session);
    const platform::KeptListings listings(session.files());
    session.state.strAction = kMoveAction; // whose searches ask nothing
    StepLines lines(session.files(), batch.searchList, batch.destinationList);
    TX_TRY(lines.Restart());
    std::vector<PlannedStep> plan;
    const std::int64_t count = LinesOf(session, batch.searchList);
    while (true) {
        TX_TRY_ASSIGN(const std::optional<StepLine> line, lines.Next());
        if (!line) return plan;
        ShowStep(session, "Counting", static_cast<std::int64_t>(plan.size()) + 1, count,
                 line->search, line->destination);
        PlannedStep step = Plan(session, *line);
        if (IsStopped(session.state)) return plan;
        plan.push_back(std::move(step));
    }
}

} // namespace tarvix::batch
