#pragma once

#include "session/session_state.h"

#include <expected>

namespace tarvix::search {

enum class Interruption { kStopped, kSkipped };

// How a walk, or a part of it, ended: it came to its end, or the user broke it off.
using WalkEnd = std::expected<void, Interruption>;

// What the flags of `cmdStop` and `cmdNext` say at this moment.
inline WalkEnd TestFlags(const session::SessionState& state) {
    if (state.blnStopClicked) return std::unexpected(Interruption::kStopped);
    if (state.blnSkipSearch) return std::unexpected(Interruption::kSkipped);
    return {};
}

} // namespace tarvix::search
