#pragma once

#include "platform/file_system.h"

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;
struct Object;

struct Protection {
    bool isProtected = true;
    platform::Result<platform::Look> look; // at the object, or the error that it was told by

    // It isn't what the search saw; nothing was asked.
    bool IsChanged() const { return !look && look.error().number == platform::kChangedSinceSearch; }
};

// Whether an object is protected and must not be overwritten, moved or deleted: it is hidden or a
// system object and neither the options of this run nor the user say otherwise, or it can't be
// read. Asks, logs the answer, and keeps one for all in the run. A plain copy or move of such an
// object goes on as a copy, which is told once for the whole program. That it isn't what the search
// saw is logged.
Protection CheckSystemHidden(session::Session& session, ActionRun& run, const Object& object,
                             bool blnOverwriting);

} // namespace tarvix::actions
