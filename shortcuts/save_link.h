#pragma once

#include "platform/error.h"
#include "shortcuts/formats/values.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::shortcuts {

// What is to be written into one shortcut.
struct LinkChange {
    std::string path; // drive path
    Values stored;    // as it was read (results::LinkCells)
    Edits edits;
};

// What became of it.
struct SavedLink {
    bool isChanged = false;
    std::string oldBeside; // the old version, where no trash took it; empty for none
};

// Writes the edits beside the shortcut and puts them in its place whole; mode, owner and attributes
// stay, the old version goes to the trash as "NAME (before edit)". Without edits its bytes are
// written again. 53 missing, 70 refused, 75 what can't be saved, by a sentence; kChangedSinceSearch
// when it doesn't hold what was read. After a failure the shortcut stands as it was.
platform::Result<SavedLink> SaveLink(session::Session& session, const LinkChange& change);

// Why SaveLink would not save it, as far as that can be known without writing; none if it would.
std::optional<platform::PlatformError> WhyNotSaved(session::Session& session,
                                                   const LinkChange& change);

// Gives a shortcut another name in its folder, as a user types it; gives its new path. 52 for what
// can't be a name, 58 when it is taken.
platform::Result<std::string> ReNameLink(session::Session& session, const std::string& path,
                                         std::string_view newName);
// That path, whether or not it can be.
std::string RenamedPath(std::string_view path, std::string_view newName);

} // namespace tarvix::shortcuts
