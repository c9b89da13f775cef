#include "tests/machine/memory_node.h"

#include "platform/short_names.h"
#include "text/case.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
void MakeKey(std::string& key, std::string_view name, std::string_view nativeName) {
    key.clear();
    text::AppendUpper(key, name);
    key += '\0';
    key += name;
    if (!nativeName.empty()) key.append(1, '\0').append(nativeName);
}

// The only child with that short name; `count` tells how many there are.
MemoryNode* FindShort(const MemoryNode& folder, std::string_view name, std::size_t& count) {
    const std::string wanted = text::Upper(name);
    MemoryNode* found = nullptr;
    for (const auto& [key, child] : folder.children) {
        if (!child->nativeName.empty() || ShortNameOf(child->name) != wanted) continue;
        found = child.get();
        ++count;
    }
    return found;
}
} // namespace

bool MemoryNode::IsWithin(const MemoryNode& other) const {
    const MemoryNode* node = this;
    while (node != nullptr && node != &other)
        node = node->parent;
    return node != nullptr;
}

MemoryNode* MemoryNode::Child(std::string_view childName, std::string_view childNativeName) const {
    static thread_local std::string key; // one block for all look-ups
    MakeKey(key, childName, childNativeName);
    const auto found = children.find(key);
    return found == children.end() ? nullptr : found->second.get();
}

MemoryNode* MemoryNode::Find(std::string_view childName) const {
    if (MemoryNode* exact = Child(childName)) return exact;
    if (LooksLikeMadeShortName(childName)) {
        std::size_t count = 0;
        MemoryNode* found = FindShort(*this, childName, count);
        if (count > 0) return count == 1 ? found : nullptr;
    }
    std::string key = text::Upper(childName);
    key += '\0';
    const auto found = children.lower_bound(key);
    if (found == children.end() || !found->first.starts_with(key)) return nullptr;
    return found->second.get();
}

void MemoryNode::Attach(std::shared_ptr<MemoryNode> node, std::string_view newName,
                        std::string_view newNativeName) {
    std::string key;
    MakeKey(key, newName, newNativeName);
    node->name = newName;
    node->nativeName = newNativeName;
    node->parent = this;
    auto& place = children[std::move(key)];
    if (place) place->parent = nullptr;
    place = std::move(node);
}

std::shared_ptr<MemoryNode> MemoryNode::Detach() {
    auto self = shared_from_this();
    if (parent == nullptr) return self;
    std::string key;
    MakeKey(key, name, nativeName);
    parent->children.erase(key);
    parent = nullptr;
    return self;
}

std::shared_ptr<MemoryNode> MemoryNode::Duplicate() const {
    auto copy = std::make_shared<MemoryNode>(kind);
    copy->attributes = attributes;
    copy->size = size;
    copy->modified = modified;
    copy->created = created;
    copy->accessed = accessed;
    copy->content = content;
    copy->linkTarget = linkTarget;
    copy->extendedAttributes = extendedAttributes;
    return copy;
}

std::string MemoryNode::Bytes(std::uint64_t offset, std::size_t count) const {
    if (offset >= size) return {};
    const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(count, size - offset));
    std::string bytes;
    if (offset < content.size()) bytes = content.substr(static_cast<std::size_t>(offset), length);
    bytes.resize(length, '\0');
    return bytes;
}

} // namespace tarvix::platform
