#pragma once

#include "platform/tree/tree_node.h"

#include <map>
#include <string>

namespace tarvix::platform {

// One object on a disk in memory. Tests may set any field but the names and those of the tree.
struct MemoryNode : TreeNode {
    using TreeNode::TreeNode;

    bool isUnreadable = false; // a file that can't be read, a folder that can't be entered: 70
    bool isLocked = false;     // a folder that takes no names and gives none up: 70
    std::string linkTarget;    // a drive path, or one relative to the link's folder
    std::map<std::string, std::string> extendedAttributes;
};

inline MemoryNode& InMemory(TreeNode& node) {
    return static_cast<MemoryNode&>(node);
}
inline const MemoryNode& InMemory(const TreeNode& node) {
    return static_cast<const MemoryNode&>(node);
}

} // namespace tarvix::platform
