#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// An object that is to be renamed in its folder.
struct RenamedObject {
    std::string_view path;   // as people see it
    std::string_view parent; // its folder with "\" behind it, which the new path begins with
    bool isFile = true;
    std::string_view routine; // for the question about a long path
};

// Whether what its new path has behind the folder can be a name and the path isn't too long, or
// could be shortened, which changes `path`. Otherwise that was told or asked about, and the object
// stays; `bytPathChoice` then tells whether the user ended all of it.
bool CanUseNewPath(session::Session& session, const RenamedObject& object, std::string& path);

} // namespace tarvix::actions
