#pragma once

#include "platform/error.h"

#include <string_view>

namespace tarvix::platform {

constexpr std::size_t kLongestName = 255; // bytes of a name on disk

inline std::unexpected<PlatformError> Fail(int number, std::string_view path) {
    return Failure(number, std::string(path) + ": " + ErrorText(number) + ".");
}

} // namespace tarvix::platform
