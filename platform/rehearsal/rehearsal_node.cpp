#include "platform/rehearsal/rehearsal_node.h"

#include "platform/short_names.h"
#include "text/paths.h"

namespace tarvix::platform {

std::string RealPath(const TreeNode& node) {
    const RehearsalNode& own = Rehearsed(node);
    if (own.origin) return *own.origin;
    if (own.isMade || own.parent == nullptr) return {};
    const std::string outer = RealPath(*own.parent);
    if (outer.empty()) return outer;
    // A name that can't be opened can be by its short form.
    return text::JoinPath(outer, own.nativeName ? ShortNameOf(own.name) : own.name);
}

} // namespace tarvix::platform
