#pragma once

#include "platform/file_system.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvix::results {
struct Selection;
}

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// One object that an action has in hand. The texts belong to the selection or to the caller.
struct Object {
    std::size_t index = 0;     // in the selection
    std::string_view name;     // that it is to get
    std::string_view path;     // as listed, for people
    std::string_view actual;   // for file system calls, spelled as on the disk
    std::string_view relative; // path and name below its search location, without a leading "\"
    bool isFile = true;
    platform::Sighting sighting; // how the search saw it

    // What an action must find at its path.
    platform::SeenObject Seen(platform::Same same) const { return {actual, sighting, same}; }
    // The path whose folders are really named so: `path` may have short names in it.
    std::string_view TruePath() const { return actual.empty() ? path : actual; }
};

// The object itself, as far as the run wants it to be what the search saw: 53 for what isn't the
// file, 76 for what isn't the folder that it was, kChangedSinceSearch.
platform::Result<platform::Look> LookAt(session::Session& session, const ActionRun& run,
                                        const Object& object);

// What is told of one, given by its path, that is not what the search saw.
std::string ChangedText(const session::Session& session, std::string_view path);

// The selected object at `index`; valid for as long as the selection stands.
Object ObjectAt(const results::Selection& selection, std::size_t index);

} // namespace tarvix::actions
