#pragma once

#include "session/tools.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::launch {

// How files are given to a player.
enum class MediaWay : std::uint8_t {
    kPlay,    // pictures too
    kEnqueue, // behind what plays
    kForce,   // enqueued whatever their extension is
};

// Who gets which of the files.
struct MediaPlan {
    session::Tool player;
    session::Tool secondPlayer;
    std::vector<std::string> forPlayer;
    std::vector<std::string> forSecond;
    std::vector<std::string> skipped;
};

// Parts `files` (drive paths) by the extensions that each player takes; what is found or
// set as the first player decides.
MediaPlan PlanMedia(session::Session& session, std::span<const std::string_view> files,
                    MediaWay way);

// Hands the files to their players, each list in its order. The failure of the first that isn't
// there or can't be started; a player that runs gets files over the session bus where it takes
// them.
platform::Result<void> StartMedia(session::Session& session, const MediaPlan& plan, MediaWay way);

// What to tell of the skipped files: their paths, one a line, and why. Empty when there are none.
std::string SkippedText(const session::Session& session, const MediaPlan& plan);

} // namespace tarvix::launch
