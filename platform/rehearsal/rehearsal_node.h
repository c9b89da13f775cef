#pragma once

#include "platform/tree/tree_node.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvix::platform {

// One object as it would be after the changes; `isHeld` unless what it holds is read through.
struct RehearsalNode : TreeNode {
    using TreeNode::TreeNode;

    // The real path that it was moved or copied from; else it lies where its parent really lies.
    std::unique_ptr<std::string> origin;
    bool isMade = false;                       // there is nothing real behind it
    bool hasFacts = false;                     // its fields hold them
    bool isLinkToFolder = false;               // such a link holds objects of its own
    int failure = 0;                           // why the real folder can't be listed
    std::optional<int> refusal;                // why the real folder takes no names; 0 when it does
    mutable std::optional<std::uint64_t> disk; // that the real folder lies on; 0 unknown
};

inline RehearsalNode& Rehearsed(TreeNode& node) {
    return static_cast<RehearsalNode&>(node);
}
inline const RehearsalNode& Rehearsed(const TreeNode& node) {
    return static_cast<const RehearsalNode&>(node);
}

// The real path of an object; empty when there is none.
std::string RealPath(const TreeNode& node);

} // namespace tarvix::platform
