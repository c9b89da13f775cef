#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

constexpr int kSearchFolderLimit = 1000;

// One search location: the folder as people see it, and in a form that opens. Neither has a final
// "\" except a drive's root. `folder` is empty when it doesn't exist.
struct SearchLocation {
    std::string folder;
    std::string folderShort;
};

// A typed text as folders.
struct Locations {
    std::vector<SearchLocation> folders; // one for each piece of the text, at most 1,000
    std::string text;                    // what `cmbDir` reads afterwards
    bool blnRecycleAllowed = false;      // one of them is a recycle folder
};

// The search locations of a text of folders separated by "|": titles replaced by their folders,
// native paths and variables turned into drive paths, each as the disk spells it. All that is wrong
// is told in one message, and the search goes on with what is good. `cmbDir` takes the cleaned
// list, except in a batch, which goes on with what was typed.
Locations ParseSearchFolder(session::Session& session, std::string_view strFolderString);

enum class ObjectKind { kNone, kFile, kFolder };
struct ResolvedObject {
    std::string path; // as the disk spells it; empty when there is nothing
    ObjectKind kind = ObjectKind::kNone;
};
// What stands at a drive path; a final "\" doesn't count.
ResolvedObject ResolveObjectKind(session::Session& session, std::string_view path);

} // namespace tarvix::search
