#include "actions/place/name_parts.h"

namespace tarvix::actions {

NameParts SplitPrefixAndExtension(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return {name, {}};
    return {name.substr(0, dot), name.substr(dot + 1)};
}

} // namespace tarvix::actions
