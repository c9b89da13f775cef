#pragma once

#include "platform/error.h"
#include "platform/object_facts.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace tarvix::platform {

// For the length of a search location: the whole path may be reached by any road and in any case.
constexpr std::uint32_t kAnyRoad = std::numeric_limits<std::uint32_t>::max();

// How a search saw an object.
struct Sighting {
    ObjectIdentity identity; // none: whatever bears the name
    std::uint64_t size = 0;
    std::uint32_t attributes = 0;
    // Bytes of its path that are the search location, which may be reached through links. Below it
    // each name counts exactly and no link is followed.
    std::uint32_t location = kAnyRoad;
    bool wasEmpty = false; // a folder that was listed since nothing was in it

    // Else nothing is known but a path.
    bool IsKnown() const { return identity.inode != 0 || location != kAnyRoad; }
};

// What must be as it was seen.
enum class Same : std::uint8_t {
    kName,    // an object of that very name stands there, in the folder that no link leads to
    kObject,  // it is that object, whatever has become of its content
    kContent, // a file's size and time are those that were seen, an empty folder is still empty
};

// An object that was seen: what an action acts on, and on nothing else that came to its path since.
struct SeenObject {
    std::string_view path; // drive path; belongs to the caller
    Sighting sighting;
    Same same = Same::kName;
};

// Whether facts taken just now are those of the object: kChangedSinceSearch when they aren't. That
// a folder is still empty isn't looked at.
Result<void> CheckSame(const SeenObject& seen, const ObjectFacts& now);

// Of two times of change, whether they are one as far as a list keeps them.
bool IsSameTime(FileTime a, FileTime b);

} // namespace tarvix::platform
