#pragma once

#include "batch/move_batch.h"

#include <optional>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::batch {

enum class PlaylistPlace { kInEachFolder, kInOneFolder };

// The name of its routine, for errors.
std::string_view RoutineOf(PlaylistPlace place);

// The questions of a generation of playlists, in their order, but for the last: whether to start.
// Nothing when the user cancelled.
std::optional<PlaylistBatch> AskPlaylistBatch(session::Session& session, PlaylistPlace place);

} // namespace tarvix::batch
