#pragma once

#include "platform/file_system.h"
#include "platform/native_paths.h"

namespace tarvix::platform {

// Translates by the mounts of a FileSystem's drives; "~" is /home/ann.
class MemoryNativePaths : public NativePaths {
  public:
    explicit MemoryNativePaths(FileSystem& files) : files_(files) {}

    bool IsNative(std::string_view text) const override;
    std::string ToDrive(std::string_view text) const override;
    std::string ToNative(std::string_view drivePath) const override;

  private:
    FileSystem& files_;
};

} // namespace tarvix::platform
