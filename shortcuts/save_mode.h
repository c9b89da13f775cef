#pragma once

#include "shortcuts/edit_mode.h"

namespace tarvix::shortcuts {

// How the save of the mode ended.
enum class Saved {
    kSaved,
    kNotWanted, // the user said no: the mode goes on
    kFailed,    // told; the list may be out of step with the disk
};

// Reads the text that was edited, asks, puts its values into the columns of the list, then writes
// each shortcut, gives it its name and reads its row again.
Saved SaveTargetPathFile(session::Session& session, const EditMode& mode);

} // namespace tarvix::shortcuts
