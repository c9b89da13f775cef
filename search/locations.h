#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// Fills the table of search locations from a text of folders separated by "|": titles replaced by
// their folders, native paths and variables turned into drive paths, each as the disk spells it. A
// folder that doesn't exist keeps an empty entry. All that is wrong is told in one message, and the
// search goes on with what is good. `cmbDir` takes the cleaned list.
void ParseSearchFolder(session::Session& session, std::string_view strFolderString);

enum class ObjectKind { kNone, kFile, kFolder };
struct ResolvedObject {
    std::string path; // as the disk spells it; empty when there is nothing
    ObjectKind kind = ObjectKind::kNone;
};
ResolvedObject ResolveObjectKind(session::Session& session, std::string_view path);

} // namespace tarvix::search
