#pragma once

#include "platform/platform.h"

#include <expected>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::cli {

// Turns paths as they are typed in a terminal into drive paths.
class TypedPaths {
  public:
    // `currentFolder` is native; relative paths start there.
    TypedPaths(const platform::Platform& machine, std::string currentFolder)
        : machine_(machine), currentFolder_(std::move(currentFolder)) {}

    // A native, "~", file://, drive, network or relative path in drive form, variables expanded.
    // Empty for a path on no drive.
    std::string ToDrive(std::string_view typed) const;

    // The search locations of several typed texts, each one path or several with "|" between, in
    // drive form. A failure names the one that is no folder.
    std::expected<std::vector<std::string>, std::string>
    Locations(const std::vector<std::string>& typed) const;

    bool IsFolder(std::string_view drivePath) const;

  private:
    std::expected<std::string, std::string> OneLocation(std::string_view typed) const;

    platform::Platform machine_;
    std::string currentFolder_;
};

} // namespace tarvix::cli
