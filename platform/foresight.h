#pragma once

#include "platform/error.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvix::platform {

// What is left of the file system that a folder lies on.
struct DiskRoom {
    std::uint64_t disk = 0; // which one
    std::uint64_t bytes = 0;
    bool sharesBlocks = false; // a copy on the same disk may take no room
};

// What a machine can tell of a change before it is made: rights, read-only media, room. A refusal
// (70) would come true now; no refusal is no promise. Drive paths of what is there; for what is not
// there the answer is that of a look at it (53, 76).
class Foresight {
  public:
    virtual ~Foresight() = default;
    // The bytes of a file. Links can always be read.
    virtual Result<void> MayRead(std::string_view) { return {}; }
    // New names in a folder.
    virtual Result<void> MayAddTo(std::string_view) { return {}; }
    // That an object leaves its place, by a move or to the trash.
    virtual Result<void> MayTake(std::string_view) { return {}; }
    // None where nothing can be told, as on file systems that pack what they hold.
    virtual std::optional<DiskRoom> RoomIn(std::string_view) { return std::nullopt; }
};

} // namespace tarvix::platform
