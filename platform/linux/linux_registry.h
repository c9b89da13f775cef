#pragma once

#include "platform/registry.h"

namespace tarvix::platform {

// This desktop keeps no default verb for all files, nor for unknown ones.
class LinuxRegistry : public Registry {
  public:
    std::optional<std::string> ClassDefault(std::string_view) const override {
        return std::nullopt;
    }
};

} // namespace tarvix::platform
