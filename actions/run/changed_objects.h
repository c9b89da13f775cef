#pragma once

#include <cstddef>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// An object of the selection that was not what the search saw, at one of its destinations.
struct ChangedObject {
    std::size_t index;
    int place = 0;
};

// Whether to act on what stands under the names of these objects by now: one question for all of
// them, none when there are none. Nobody is asked in automatic mode, but for a deletion, in a batch
// or a preview: it is No then. After Yes the run takes whatever bears the names; still no link on
// the way is followed.
bool GoesOnWithChanged(session::Session& session, ActionRun& run,
                       const std::vector<ChangedObject>& changed);

// Counts what stays of them as failed, with a sentence each.
void FoldChanged(session::Session& session, const ActionRun& run,
                 const std::vector<ChangedObject>& changed);

} // namespace tarvix::actions
