#pragma once

#include <string_view>

namespace tarvix::actions {

// All names of character references, a blank behind each: the name, ":" or, where it needs no ";"
// behind it in a page, "!", and one or two code points in hexadecimal digits with "." between.
extern const std::string_view kReferenceTable;

} // namespace tarvix::actions
