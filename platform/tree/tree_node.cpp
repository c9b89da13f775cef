#include "platform/tree/tree_node.h"

#include "platform/short_names.h"
#include "text/case.h"

#include <algorithm>
#include <atomic>

namespace tarvix::platform {

namespace {
// Of one block for all look-ups; good until the next call.
const std::string& UpperOf(std::string_view name) {
    static thread_local std::string upper;
    upper.clear();
    text::AppendUpper(upper, name);
    return upper;
}

bool HasNames(const TreeNode& node, std::string_view name, std::string_view nativeName) {
    return node.name == name && node.NativeName() == nativeName;
}

bool ComesBefore(const TreeNode& a, const TreeNode& b) {
    if (a.name != b.name) return a.name < b.name;
    return a.NativeName() < b.NativeName();
}
} // namespace

namespace {
std::uint64_t NextNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}
} // namespace

TreeNode::TreeNode(TreeKind objectKind) : kind(objectKind) {
    identity.inode = NextNumber();
}

// ---- the objects of a folder ----

TreeNode* TreeChildren::Exact(std::string_view name, std::string_view nativeName) const {
    auto [at, end] = byUpper_.equal_range(UpperOf(name));
    for (; at != end; ++at) {
        if (HasNames(*at->second, name, nativeName)) return at->second.get();
    }
    return nullptr;
}

TreeNode* TreeChildren::Find(std::string_view name) {
    auto [at, end] = byUpper_.equal_range(UpperOf(name));
    TreeNode* const inOtherCase = at == end ? nullptr : at->second.get();
    for (; at != end; ++at) {
        if (HasNames(*at->second, name, {})) return at->second.get();
    }
    if (LooksLikeMadeShortName(name)) {
        const auto found = Shorts().find(UpperOf(name));
        if (found != Shorts().end()) return found->second;
    }
    return inOtherCase;
}

bool TreeChildren::HasOther(std::string_view name, const TreeNode& except) const {
    auto [at, end] = byUpper_.equal_range(UpperOf(name));
    return std::any_of(at, end, [&](const auto& entry) { return entry.second.get() != &except; });
}

void TreeChildren::Add(std::shared_ptr<TreeNode> node) {
    const std::string& upper = UpperOf(node->name);
    auto at = byUpper_.end();
    // A listing comes in order.
    if (!byUpper_.empty() && byUpper_.rbegin()->first >= upper) {
        const auto range = byUpper_.equal_range(upper);
        for (at = range.first; at != range.second && ComesBefore(*at->second, *node);)
            ++at;
        if (at != range.second && HasNames(*at->second, node->name, node->NativeName())) {
            at->second->parent = nullptr;
            at = byUpper_.erase(at);
            byShort_.reset();
        }
    }
    const auto added = byUpper_.emplace_hint(at, upper, std::move(node));
    if (byShort_) AddShort(*added->second);
}

std::shared_ptr<TreeNode> TreeChildren::Take(const TreeNode& node) {
    auto at = byUpper_.lower_bound(UpperOf(node.name));
    while (at->second.get() != &node)
        ++at;
    auto taken = std::move(at->second);
    byUpper_.erase(at);
    byShort_.reset();
    return taken;
}

void TreeChildren::AddShort(TreeNode& node) {
    const auto [entry, isNew] = byShort_->try_emplace(ShortNameOf(node.name), &node);
    if (!isNew) entry->second = nullptr;
}

const TreeChildren::ShortNames& TreeChildren::Shorts() {
    if (!byShort_) {
        byShort_ = std::make_unique<ShortNames>();
        for (const auto& [upper, node] : byUpper_)
            AddShort(*node);
    }
    return *byShort_;
}

// ---- one object ----

TreeNode::~TreeNode() {
    for (const auto& [upper, child] : Children())
        child->parent = nullptr;
}

bool TreeNode::IsWithin(const TreeNode& other) const {
    const TreeNode* node = this;
    while (node != nullptr && node != &other)
        node = node->parent;
    return node != nullptr;
}

std::string_view TreeNode::NativeName() const {
    return nativeName ? std::string_view(*nativeName) : std::string_view();
}

const TreeChildren& TreeNode::Children() const {
    static const TreeChildren none;
    return children ? *children : none;
}

TreeNode* TreeNode::Child(std::string_view childName, std::string_view childNativeName) const {
    return Children().Exact(childName, childNativeName);
}

void TreeNode::Attach(std::shared_ptr<TreeNode> node, std::string_view newName,
                      std::string_view newNativeName) {
    node->name = newName;
    node->nativeName =
        newNativeName.empty() ? nullptr : std::make_unique<std::string>(newNativeName);
    node->parent = this;
    if (!children) children = std::make_unique<TreeChildren>();
    children->Add(std::move(node));
}

std::shared_ptr<TreeNode> TreeNode::Detach() {
    if (parent == nullptr) return shared_from_this();
    auto self = parent->children->Take(*this);
    parent = nullptr;
    return self;
}

std::string TreeNode::Bytes(std::uint64_t offset, std::size_t count) const {
    if (offset >= size) return {};
    const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(count, size - offset));
    std::string bytes;
    if (offset < content.size()) bytes = content.substr(static_cast<std::size_t>(offset), length);
    bytes.resize(length, '\0');
    return bytes;
}

} // namespace tarvix::platform
