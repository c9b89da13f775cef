#pragma once

#include "platform/object_facts.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvix::platform {

struct TreeNode;

enum class TreeKind : std::uint8_t { kFile, kFolder, kLink }; // special files are files

// The objects of one folder, by upper-case names, those of one name by their exact text: so in
// `Dir` order. Iterating gives pairs of upper-case name and object.
class TreeChildren {
  public:
    using Map = std::multimap<std::string, std::shared_ptr<TreeNode>, std::less<>>;

    // The object of exactly that name, or null. `nativeName` only for one that can't be opened.
    TreeNode* Exact(std::string_view name, std::string_view nativeName = {}) const;
    // The object of that name: exactly, as a made short name, in any other case (the first); null
    // when there is none or two share the short name.
    TreeNode* Find(std::string_view name);
    // Whether an object but `except` has that name in any case.
    bool HasOther(std::string_view name, const TreeNode& except) const;
    // Puts an object in by its names. One of exactly these goes, and stands in no folder then.
    void Add(std::shared_ptr<TreeNode> node);
    // Takes out an object, which must be here.
    std::shared_ptr<TreeNode> Take(const TreeNode& node);

    bool empty() const { return byUpper_.empty(); }
    std::size_t size() const { return byUpper_.size(); }
    Map::const_iterator begin() const { return byUpper_.begin(); }
    Map::const_iterator end() const { return byUpper_.end(); }

  private:
    using ShortNames = std::unordered_map<std::string, TreeNode*>;

    void AddShort(TreeNode& node);
    const ShortNames& Shorts();

    Map byUpper_;
    // Made short names, worked out when one is asked for; null where two objects share one.
    std::unique_ptr<ShortNames> byShort_;
};

// One object of a tree in memory.
struct TreeNode : std::enable_shared_from_this<TreeNode> {
    // Its number is that of no other node.
    explicit TreeNode(TreeKind objectKind);
    // Objects of it that are still held stand in no folder afterwards.
    ~TreeNode();
    TreeNode(const TreeNode&) = delete;
    TreeNode& operator=(const TreeNode&) = delete;

    TreeKind kind;
    bool isBoundary = false;      // a mount that a crawl or copy must not walk into
    bool isBeingWritten = false;  // through a text stream
    bool isHeld = true;           // all that it holds is here, in `content` or `children`
    std::uint32_t attributes = 0; // without those that its kind and a leading dot give
    std::uint64_t size = 0;       // past the end of `content` there are zeros
    FileTime modified = kNoTime;
    FileTime created = kNoTime;
    FileTime accessed = kNoTime;
    ObjectIdentity identity; // without a time of change the later of its dates counts
    std::string content;

    std::string name;                        // drive form
    std::unique_ptr<std::string> nativeName; // tells names that can't be opened apart, else null
    TreeNode* parent = nullptr;
    std::unique_ptr<TreeChildren> children; // null until something is put in or read

    bool IsFolder() const { return kind == TreeKind::kFolder; }
    bool IsLink() const { return kind == TreeKind::kLink; }
    // Whether this is `other` or lies somewhere below it.
    bool IsWithin(const TreeNode& other) const;
    std::string_view NativeName() const;

    // What it holds; empty for anything but a folder.
    const TreeChildren& Children() const;
    // The child of exactly that name, or null. `childNativeName` only for one that can't be opened.
    TreeNode* Child(std::string_view childName, std::string_view childNativeName = {}) const;
    // Puts a node that has no folder into this one; a child of exactly that name goes.
    // `newNativeName` only for a name that can't be opened.
    void Attach(std::shared_ptr<TreeNode> node, std::string_view newName,
                std::string_view newNativeName = {});
    // Takes this node out of its folder, if it is in one.
    std::shared_ptr<TreeNode> Detach();
    // Its bytes from `offset`, the zeros behind `content` among them; fewer at the end.
    std::string Bytes(std::uint64_t offset, std::size_t count) const;
};

} // namespace tarvix::platform
