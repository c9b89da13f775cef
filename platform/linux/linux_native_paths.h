#pragma once

#include "platform/linux/drive_table.h"
#include "platform/native_paths.h"

namespace tarvix::platform {

class LinuxNativePaths : public NativePaths {
  public:
    // `home` is what "~" stands for, a native path.
    LinuxNativePaths(Mounts& mounts, std::string home) : mounts_(mounts), home_(std::move(home)) {}

    bool IsNative(std::string_view text) const override;
    std::string ToDrive(std::string_view text) const override;
    std::string ToNative(std::string_view drivePath) const override;
    std::string NamePart(std::string_view typed) const override;

  private:
    Mounts& mounts_;
    std::string home_;
};

// An absolute native path without "." and "..", doubled and final "/", by its text alone.
std::string CleanNativePath(std::string_view path);

} // namespace tarvix::platform
