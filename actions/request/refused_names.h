#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {
class FileSystem;
struct DriveInfo;
} // namespace tarvix::platform

namespace tarvix::actions {

// Tells of new paths that the disk they lie on takes no such names.
class RefusedNames {
  public:
    explicit RefusedNames(platform::FileSystem& files);
    ~RefusedNames();

    // "FAT takes no : in a name" for the first name of the path (drive form) that can't be written;
    // empty where all can, as far as is known.
    std::string Why(std::string_view path) const;

  private:
    std::vector<platform::DriveInfo> drives_;
};

} // namespace tarvix::actions
