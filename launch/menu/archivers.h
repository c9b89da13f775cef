#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {
class Applications;
}

namespace tarvix::menu {

// A program that puts objects into an archive after asking for its name.
struct Archiver {
    std::string_view program;
    std::string_view arguments; // in front of the objects' paths; "%d" is their folder
};

// The first of the known ones that is installed.
std::optional<Archiver> FindArchiver(platform::Applications& applications);

// Its arguments, the program in front, for objects (native paths) that lie below a folder.
std::vector<std::string> ArchiverArguments(const Archiver& archiver, const std::string& folder,
                                           const std::vector<std::string>& paths);

} // namespace tarvix::menu
