#pragma once

#include "platform/error.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// An absolute drive path in its pieces. The views point into the text it was made from.
struct DrivePath {
    std::string_view root; // "C:" or "\\server\share", spelled as given
    std::vector<std::string_view> names;
};

// Takes "C:", "C:\a\b" and "\\server\share\a", doubled and final "\" passed over; "." is dropped
// and ".." takes away the name before it, without a look at the disk. 52 for any other text and for
// a component that can't be a name.
Result<DrivePath> ParseDrivePath(std::string_view path);

} // namespace tarvix::platform
