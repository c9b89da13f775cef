#pragma once

namespace tarvix::session {
struct SessionState;
}

namespace tarvix::actions {

struct ActionRun;
struct Outcome;

// Adds what became of one object to `lastAction`, sets `blnErrorOccurred` for a failure, and hands
// the outcome on to the run's sink.
void FoldOutcome(session::SessionState& state, const ActionRun& run, const Outcome& outcome);

} // namespace tarvix::actions
