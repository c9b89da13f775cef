#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::model {

// One object of a tree as the model sees it. Nothing here is the program's own.
struct Node {
    std::string name;
    bool isFolder = false;
    std::string content;
    unsigned mode = 0644;
    bool isForeign = false; // another user's
    bool isOld = true;      // stood there before the action
    Node* parent = nullptr;
    std::vector<std::unique_ptr<Node>> children;

    bool IsHidden() const { return name.starts_with('.'); }
    bool IsReadOnly() const { return (mode & 0200) == 0; }
    std::string Path() const; // below the root of the tree
};

std::unique_ptr<Node> NewFolder(std::string name, unsigned mode = 0755);
Node* Add(Node& folder, std::unique_ptr<Node> child);
std::unique_ptr<Node> TakeOut(Node& node);
std::unique_ptr<Node> CopyOf(const Node& node);

// Names as they are compared and listed.
std::string Upper(std::string_view text);
bool Precedes(const Node& a, const Node& b);
// "*" and "?" alone are special.
bool Matches(std::string_view name, std::string_view pattern);

// The child of exactly that name, else the first of it in another case, else null.
Node* Find(const Node& folder, std::string_view name);

// Whose rights count.
struct Actor {
    bool isRoot = false;

    bool MayRead(const Node& node) const { return Has(node, 4); }
    bool MayWrite(const Node& node) const { return Has(node, 2); }
    bool MayEnter(const Node& node) const { return Has(node, 1); }
    bool MayChange(const Node& folder) const { return MayWrite(folder) && MayEnter(folder); }
    // Whether the name may be taken away from its folder.
    bool MayTake(const Node& node) const;
    // With all that it holds.
    bool MayReadAll(const Node& node) const;

  private:
    bool Has(const Node& node, unsigned bit) const {
        return isRoot || (((node.isForeign ? node.mode : node.mode >> 6) & bit) != 0);
    }
};

// Four octal digits.
std::string ModeText(unsigned mode);

// One line for each file, and each folder that was there before or holds something.
std::vector<std::string> LinesOf(const Node& root);

} // namespace tarvix::model
