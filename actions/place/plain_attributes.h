#pragma once

#include "platform/object_facts.h"

#include <cstdint>

namespace tarvix::actions {

// What a folder and a file have when nothing protects them.
constexpr std::uint32_t kPlainFolder = platform::kFolder;
constexpr std::uint32_t kPlainFile = 0;

// What an object takes along to its new place.
constexpr std::uint32_t kCarried =
    platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive;
// What keeps an object from being copied over, moved or deleted.
constexpr std::uint32_t kProtecting = platform::kReadOnly | platform::kHidden | platform::kSystem;

} // namespace tarvix::actions
