#pragma once

#include "platform/linux/drive_table.h"
#include "platform/linux/name_table.h"
#include "platform/native_paths.h"
#include "text/by_text.h"
#include "text/last_found.h"

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

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
    using Table = std::shared_ptr<const DriveTable>;
    // The path of an object in a folder whose own is known; empty where it isn't.
    std::string FromKnown(std::string_view folder, std::string_view name) const;
    void Note(const Table& drives, std::string_view folder, std::string_view native) const;

    Mounts& mounts_;
    std::string home_;
    mutable std::mutex mutex_;
    mutable Table drives_;                      // of what is known
    mutable text::ByText<std::string> folders_; // native paths of folders by drive path, "" for "/"
    mutable text::LastFound<std::string> lastFolders_;
};

// An absolute native path without "." and "..", doubled and final "/", by its text alone.
std::string CleanNativePath(std::string_view path);

} // namespace tarvix::platform
