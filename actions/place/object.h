#pragma once

#include "platform/file_system.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvix::results {
struct Selection;
}

namespace tarvix::actions {

// One object that an action has in hand. The texts belong to the selection or to the caller.
struct Object {
    std::size_t index = 0;     // in the selection
    std::string_view name;     // that it is to get
    std::string_view path;     // as listed, for people
    std::string_view actual;   // for file system calls, spelled as on the disk
    std::string_view relative; // path and name below its search location, without a leading "\"
    bool isFile = true;
    std::optional<platform::Look> look; // where one was taken just now

    // The path whose folders are really named so: `path` may have short names in it.
    std::string_view TruePath() const { return actual.empty() ? path : actual; }
};

// The selected object at `index`; valid for as long as the selection stands.
Object ObjectAt(const results::Selection& selection, std::size_t index);

} // namespace tarvix::actions
