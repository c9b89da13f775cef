#pragma once

#include "platform/error.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {
class FileSystem;
}
namespace tarvix::session {
struct Session;
}

// Lists of names: a line for each object, then a line that is the end mark.
namespace tarvix::actions {

struct NameLines {
    std::vector<std::string> lines; // up to the mark, or all
    bool isMarked = false;
};

// The lines of a list (drive path). The errors of opening and reading a text file.
platform::Result<NameLines> ReadNameLines(platform::FileSystem& files, const std::string& path);

enum class ListedNames {
    kWithoutExtensions, // of files
    kWhole
};

// The line of an object of the selection with its present name, as people see it; never blank and
// never the mark, and its object keeps its name by it.
std::string LineOf(const session::Session& session, std::size_t index, ListedNames names);

// The whole name (drive form) that a line gives an object: its present one for the line that LineOf
// has for it; empty for a blank line.
std::string NameOf(const session::Session& session, std::size_t index, ListedNames names,
                   std::string_view line);

// A list of the present names of the whole selection, with its mark if `isMarked`.
std::string PresentNames(const session::Session& session, ListedNames names, bool isMarked);

} // namespace tarvix::actions
