#pragma once

#include "fields/prompt_forms.h"

#include <string>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

class KnownBytes;

// The first names that an action would give, while its window is open: a rename, by what is typed
// or by names from elsewhere, or a copy with the names of folders.
struct FirstNames {
    std::vector<fields::PreviewRow> rows; // in the order of the list, for people
    std::string note; // why there are none, or that there are more; may be empty
};

// What they depend on of all that stands in the window, as one text; empty for an action that
// gives no names.
std::string FirstNamesKey(const session::Session& session);

// The names and what would become of them, worked out by the routines of the action itself on a
// file system that only records: of at most 20 objects, and of none where that takes more than a
// moment. Nothing is changed, logged, asked or yielded. With `known`, which must be fed with what
// it lacks by and by, no content of a file is waited for: "reading..." stands for what isn't known.
FirstNames FirstNamesOf(session::Session& session, KnownBytes* known = nullptr);

} // namespace tarvix::actions
