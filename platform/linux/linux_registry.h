#pragma once

#include "platform/applications.h"
#include "platform/registry.h"

namespace tarvix::platform {

// Classes as the desktop's content types: ".mp3" is one of "audio/mpeg", whose verb is "open" and
// whose command is that of the first application that opens it, with " %1" behind. "Folder" stands
// for "inode/directory". There is no verb for all files, nor for unknown ones.
class LinuxRegistry : public Registry {
  public:
    // Lives no longer than the applications.
    explicit LinuxRegistry(Applications& applications) : applications_(applications) {}
    std::optional<std::string> ClassDefault(std::string_view key) const override;

  private:
    std::optional<std::string> CommandOf(const std::string& type) const;

    Applications& applications_;
};

} // namespace tarvix::platform
