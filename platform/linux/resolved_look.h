#pragma once

#include "platform/linux/linux_file_system.h"

#include <cstdint>

namespace tarvix::platform {

// What a file system of this machine keeps of a look or of a free place.
struct LinuxFileSystem::ResolvedLook final : Known {
    explicit ResolvedLook(std::uint64_t number) : fileSystem(number) {}
    std::uint64_t fileSystem;
    std::uint64_t changes = 0; // that were made before it
    std::int64_t takenAt = 0;  // by the store's tick
    Resolved place;
};

} // namespace tarvix::platform
