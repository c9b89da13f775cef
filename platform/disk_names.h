#pragma once

#include <string>
#include <string_view>

namespace tarvix::platform {

// Why a disk of that file system ("vfat", "exfat", "ntfs3", "cifs" ...) takes no object of that
// name (drive form), as "FAT takes no : in a name"; empty where it takes it, as far as is known.
std::string WhyNoName(std::string_view fileSystem, std::string_view name);

} // namespace tarvix::platform
