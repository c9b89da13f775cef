#pragma once

#include "platform/file_system.h"

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// One object and where it is to go.
struct Placement {
    std::string strSource;       // as listed
    std::string strSourceActual; // the path for file system calls
    std::string strDestination;  // full new path
    bool blnIsFile = true;
};

enum class PlaceResult { kDone, kSamePlace, kFailed, kDiskFull };

// Copies one object to its destination, making the folders that are missing on the way. What it
// did, or why it failed, goes to the action log and the action's totals. A failure leaves the
// source whole and nothing under the final name.
PlaceResult CopyObject(session::Session& session, const Placement& placement,
                       const platform::CopyObserver& observer);

} // namespace tarvix::actions
