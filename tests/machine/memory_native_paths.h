#pragma once

#include "platform/file_system.h"
#include "platform/native_paths.h"

namespace tarvix::platform {

// Translates by the mounts of a FileSystem's drives; "~" is /home/ann. A name may hold here what a
// drive path may.
class MemoryNativePaths : public NativePaths {
  public:
    explicit MemoryNativePaths(FileSystem& files) : files_(files) {}

    bool IsNative(std::string_view text) const override;
    std::string ToDrive(std::string_view text) const override;
    std::string ToNative(std::string_view drivePath) const override;
    std::string NamePart(std::string_view typed) const override { return std::string(typed); }

  private:
    FileSystem& files_;
};

} // namespace tarvix::platform
