#pragma once

#include "platform/registry.h"
#include "text/case.h"

#include <map>

namespace tarvix::platform {

// Class keys as a test sets them, found without regard to case.
class MemoryRegistry : public Registry {
  public:
    std::optional<std::string> ClassDefault(std::string_view key) const override {
        const auto found = defaults_.find(text::Upper(key));
        if (found == defaults_.end()) return std::nullopt;
        return found->second;
    }

    void SetClassDefault(std::string_view key, std::string_view value) {
        defaults_[text::Upper(key)] = value;
    }

  private:
    std::map<std::string, std::string> defaults_;
};

} // namespace tarvix::platform
