#pragma once

#include <string>
#include <string_view>

namespace tarvix::shortcuts {

// What is put in place of what, in values of shortcuts.
struct Replacement {
    std::string find;
    std::string with;
    bool isPattern = false; // the whole value must fit; "*" is any run, "?" one character
    bool matchesCase = false;
};

// The value with every hit replaced; as it is without one. The runs of a pattern stand in `with` in
// their order, for each "*" and "?" there: "C:\old\*" by "D:\new\*".
std::string Replaced(std::string_view value, const Replacement& replacement);

} // namespace tarvix::shortcuts
