#pragma once

#include <string_view>

namespace tarvix::actions {

// A file's name at its last ".", which belongs to neither part. Views into the name.
struct NameParts {
    std::string_view strPrefix;    // the whole name without a "."
    std::string_view strExtension; // empty without a "." and behind a final one
};

// Takes a name without its folder.
NameParts SplitPrefixAndExtension(std::string_view name);

} // namespace tarvix::actions
