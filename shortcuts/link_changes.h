#pragma once

#include "shortcuts/edit_file.h"

#include <string>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::shortcuts {

// A shortcut of the list that is being edited: where it was when the mode began.
struct EditedLink {
    std::string path; // drive path
    Kind kind = Kind::kNone;
};

// Its row; the list's count when it is in it no more.
std::size_t RowOf(session::Session& session, const EditedLink& link);

// What a save would change of the record of one shortcut: "NAME: Target: old -> new" for each value
// and for its name.
void AppendChanges(std::vector<std::string>& lines, session::Session& session,
                   const EditedLink& link, const LinkRecord& wanted);

} // namespace tarvix::shortcuts
