#include "actions/run/fold_outcome.h"

#include "actions/place/action_run.h"
#include "actions/place/outcome.h"
#include "session/session_state.h"

namespace tarvix::actions {

namespace {

constexpr std::size_t kMostErrorsKept = 100;

} // namespace

void FoldOutcome(session::SessionState& state, const ActionRun& run, const Outcome& outcome) {
    auto& totals = state.lastAction;
    if (outcome.kind == OutcomeKind::kFailed || outcome.kind == OutcomeKind::kChanged) {
        ++totals.failed;
        state.blnErrorOccurred = true;
    } else {
        ++(outcome.isPlaced ? totals.done : totals.skipped);
    }
    if (outcome.kind == OutcomeKind::kSkippedDuplicate) ++totals.duplicates;
    if (outcome.kind == OutcomeKind::kUnchanged) ++totals.unchanged;
    if (outcome.kind == OutcomeKind::kCopied && run.request.isMove) ++totals.copiedOnly;
    if (outcome.isPlaced && outcome.isKeptApart) ++totals.keptApart;
    if (!outcome.error.empty() && totals.errors.size() < kMostErrorsKept) {
        totals.errors.push_back(outcome.error);
    }
    if (run.sink) run.sink->Settled(outcome);
}

} // namespace tarvix::actions
