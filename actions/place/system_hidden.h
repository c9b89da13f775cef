#pragma once

#include "platform/file_system.h"

#include <optional>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;
struct Object;

struct Protection {
    bool isProtected = true;
    bool isChanged = false;             // it isn't what the search saw; nothing was asked
    std::optional<platform::Look> look; // at the object, if it could be read
};

// Whether an object is protected and must not be overwritten, moved or deleted: it is hidden or a
// system object and the user did not say otherwise, or it can't be read. Asks, logs the answer, and
// keeps one for all in the run. A plain copy or move of such an object goes on as a copy, which is
// told once for the whole program.
Protection CheckSystemHidden(session::Session& session, ActionRun& run, const Object& object,
                             bool blnOverwriting);

} // namespace tarvix::actions
