#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::platform {

// The classes of objects and the commands that open them.
class Registry {
  public:
    virtual ~Registry() = default;
    // The default value of a class key such as "*\shell"; nothing when there is none.
    virtual std::optional<std::string> ClassDefault(std::string_view key) const = 0;
};

} // namespace tarvix::platform
