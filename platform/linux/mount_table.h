#pragma once

#include "text/last_of.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// One line of the system's mount table.
struct Mount {
    std::string point;      // native path
    std::string fileSystem; // "ext4", "fuse.sshfs", ...
    std::string source;     // "/dev/sda1", "//server/share", "server:/export"
    std::uint64_t device = 0;
    bool isReadOnly = false;
};

// How the attributes of a disk operating system are reached on a kind of file system.
enum class DosAttributes { kNone, kFat, kNtfs, kCifs };

// Reads the text of /proc/self/mountinfo. Of several mounts on one point only the last, which hides
// the others, is kept. Lines that can't be read are passed over.
std::vector<Mount> ParseMountInfo(std::string_view text);

// File systems that hold no files of anyone: proc, sysfs, cgroup ...
bool IsPseudo(const Mount& mount);
bool IsNetwork(const Mount& mount);
bool IsOptical(const Mount& mount);
// Whether names are found there in any case.
bool FoldsCase(const Mount& mount);
DosAttributes DosAttributesOf(const Mount& mount);
// Whether an object keeps its number there for as long as it exists.
bool KeepsNumbers(const Mount& mount);

// The UNC form of a network mount's source, "\\server\share\below"; empty for others.
std::string UncOf(const Mount& mount);

// Whether `path` is `folder` or lies below it, by text.
bool IsAtOrBelow(std::string_view path, std::string_view folder);
// A native path in two: the folder around an object, "/" for the root itself, too, and its name.
struct NativeParts {
    std::string_view folder;
    std::string_view name;
};
inline NativeParts PartsOf(std::string_view native) {
    const std::size_t slash = text::LastOf(native, '/');
    const bool isInRoot = slash == 0 || slash == native.npos;
    return {isInRoot ? "/" : native.substr(0, slash), native.substr(slash + 1)};
}

} // namespace tarvix::platform
