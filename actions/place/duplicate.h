#pragma once

#include "platform/file_system.h"

#include <expected>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct Object;

// What stands where an object is to go.
struct Duplicate {
    std::string name; // as the disk spells it
    bool isFile = false;
};

// The free place at `destination`, or what stands there. What others put there in the last moments
// may be missed, so it only comes before calls that never replace.
std::expected<platform::FreePlace, Duplicate> FindDuplicate(platform::FileSystem& files,
                                                            std::string_view destination);

// The same for an object in hand. A path too long to look at is asked about first and may be
// shortened in `destination`; where it stays too long, `blnPathLimitHit` is set and nothing found.
std::expected<platform::FreePlace, Duplicate> DetermineIfDuplicateExists(session::Session& session,
                                                                         const Object& object,
                                                                         std::string& destination);

// An object, and what already stands where it is to go.
struct Clash {
    const Object& object;
    int place; // the destination in hand, from 0
    const std::string& destination;
    const Duplicate& there;
};

} // namespace tarvix::actions
