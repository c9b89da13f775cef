#pragma once

#include <string>
#include <string_view>

namespace tarvix::platform {

// Translation between drive paths and the paths of other programs on this machine.
class NativePaths {
  public:
    virtual ~NativePaths() = default;
    // True for "/x", "~", "~/x" and "file://" addresses.
    virtual bool IsNative(std::string_view text) const = 0;
    // A native path or file address in drive form, by the drive with the longest matching mount;
    // any other text comes back unchanged. A relative path is not native.
    virtual std::string ToDrive(std::string_view text) const = 0;
    // A drive path (UNC too) as an absolute native path; empty when its drive is not known.
    virtual std::string ToNative(std::string_view drivePath) const = 0;
    // A typed part of a name as drive paths have it: characters that names may hold here and drive
    // paths reserve come carried (platform/names.h). What no name can hold stays as it is.
    virtual std::string NamePart(std::string_view typed) const = 0;
};

} // namespace tarvix::platform
