#pragma once

#include "platform/object_facts.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tarvix::platform {

enum class MemoryKind : std::uint8_t { kFile, kFolder, kLink, kSpecial };

// One object on a disk in memory. Tests may set any field but the name and those of the tree.
struct MemoryNode : std::enable_shared_from_this<MemoryNode> {
    explicit MemoryNode(MemoryKind objectKind) : kind(objectKind) {}
    // Children that are still held open stand in no folder afterwards.
    ~MemoryNode() {
        for (const auto& [key, child] : children) {
            child->parent = nullptr;
        }
    }

    MemoryKind kind;
    bool isUnreadable = false;    // a file that can't be read, a folder that can't be entered: 70
    bool isBeingWritten = false;  // through a text stream
    bool isBoundary = false;      // a mount that a crawl must not walk into
    std::uint32_t attributes = 0; // without the bits of its kind
    std::uint64_t size = 0;       // past the end of `content` there are zeros
    FileTime modified = kNoTime;
    FileTime created = kNoTime;
    FileTime accessed = kNoTime;
    std::string content;
    std::string linkTarget; // a drive path, or one relative to the link's folder
    std::map<std::string, std::string> extendedAttributes;

    // The tree. A folder's objects lie under upper-case form, NUL, exact name, so in `Dir` order;
    // a name that can't be opened has NUL and its native bytes behind it.
    using Children = std::map<std::string, std::shared_ptr<MemoryNode>, std::less<>>;
    std::string name;
    std::string nativeName; // only of a name that can't be opened
    MemoryNode* parent = nullptr;
    Children children;

    bool IsFolder() const { return kind == MemoryKind::kFolder; }
    bool IsLink() const { return kind == MemoryKind::kLink; }
    // Whether this is `other` or lies somewhere below it.
    bool IsWithin(const MemoryNode& other) const;

    // The child of exactly that name, or null. The native name only for one that can't be opened.
    MemoryNode* Child(std::string_view childName, std::string_view childNativeName = {}) const;
    // The child of that name: exactly, as a short name, in any other case; null when there is none
    // or two share the short name.
    MemoryNode* Find(std::string_view childName) const;
    // Puts a node that has no folder under `newName`, which must be free. `newNativeName` only for
    // a name that can't be opened.
    void Attach(std::shared_ptr<MemoryNode> node, std::string_view newName,
                std::string_view newNativeName = {});
    // Takes this node out of its folder.
    std::shared_ptr<MemoryNode> Detach();
    // A copy of the object alone, in no folder: content, size, attributes, times, target.
    std::shared_ptr<MemoryNode> Duplicate() const;
    // Its bytes from `offset`, the zeros behind `content` among them.
    std::string Bytes(std::uint64_t offset, std::size_t count) const;
};

} // namespace tarvix::platform
