#pragma once

#include "batch/move_batch.h"

#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::batch {

// Writes one playlist for each search that finds something, or one for each search in each folder.
// Nobody is asked anything meanwhile; `cmdStop` and `cmdNext` work. Leaves the window free, with
// the criteria of the last search.
BatchOutcome RunPlaylists(session::Session& session, const PlaylistBatch& batch);

// What such a run would find; nothing is written. Ends early when it is stopped; the error of a
// list that can't be read on.
platform::Result<std::vector<PlannedStep>> PlanPlaylists(session::Session& session,
                                                         const PlaylistBatch& batch);

} // namespace tarvix::batch
