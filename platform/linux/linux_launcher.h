#pragma once

#include "platform/file_system.h"
#include "platform/launcher.h"
#include "platform/native_paths.h"

namespace tarvix::platform {

// Opens documents with the programs that the desktop has for them.
class LinuxLauncher : public Launcher {
  public:
    LinuxLauncher(FileSystem& files, const NativePaths& paths) : files_(files), paths_(paths) {}
    Result<void> OpenDocument(std::string_view path) override;
    Result<void> OpenWith(std::string_view command, std::string_view path) override;

  private:
    FileSystem& files_;
    const NativePaths& paths_;
};

// For fronts without a desktop: starts nothing (70).
class NullLauncher : public Launcher {
  public:
    Result<void> OpenDocument(std::string_view path) override;
    Result<void> OpenWith(std::string_view command, std::string_view path) override;
};

} // namespace tarvix::platform
