#include "tests/model/model_tree.h"

#include <algorithm>

namespace tarvix::model {

std::string Node::Path() const {
    if (parent == nullptr) return {};
    const std::string above = parent->Path();
    return above.empty() ? name : above + "/" + name;
}

std::string ModeText(unsigned mode) {
    std::string text;
    for (int shift = 9; shift >= 0; shift -= 3) {
        text += static_cast<char>('0' + ((mode >> shift) & 7));
    }
    return text;
}

std::unique_ptr<Node> NewFolder(std::string name, unsigned mode) {
    auto folder = std::make_unique<Node>();
    folder->name = std::move(name);
    folder->isFolder = true;
    folder->mode = mode;
    return folder;
}

Node* Add(Node& folder, std::unique_ptr<Node> child) {
    child->parent = &folder;
    folder.children.push_back(std::move(child));
    return folder.children.back().get();
}

std::unique_ptr<Node> TakeOut(Node& node) {
    auto& among = node.parent->children;
    const auto at =
        std::ranges::find_if(among, [&](const auto& one) { return one.get() == &node; });
    auto taken = std::move(*at);
    among.erase(at);
    taken->parent = nullptr;
    return taken;
}

std::unique_ptr<Node> CopyOf(const Node& node) {
    auto copy = std::make_unique<Node>();
    copy->name = node.name;
    copy->isFolder = node.isFolder;
    copy->content = node.content;
    copy->mode = node.mode;
    copy->isOld = false;
    for (const auto& child : node.children) {
        Add(*copy, CopyOf(*child));
    }
    return copy;
}

std::string Upper(std::string_view text) {
    std::string upper;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        // The letters with two dots that the worlds use.
        const bool isSmall = i > 0 && text[i - 1] == '\xC3' && c >= 0xA0 && c <= 0xBC;
        upper += static_cast<char>(isSmall || (c >= 'a' && c <= 'z') ? c - 0x20 : c);
    }
    return upper;
}

bool Precedes(const Node& a, const Node& b) {
    const std::string upperA = Upper(a.name);
    const std::string upperB = Upper(b.name);
    return upperA != upperB ? upperA < upperB : a.name < b.name;
}

bool Matches(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern[0] == '*') {
        for (std::size_t i = 0; i <= name.size(); ++i) {
            if (Matches(name.substr(i), pattern.substr(1))) return true;
        }
        return false;
    }
    if (name.empty()) return false;
    std::size_t length = 1; // of the first character in bytes
    while (length < name.size() && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) {
        ++length;
    }
    if (pattern[0] == '?') return Matches(name.substr(length), pattern.substr(1));
    return Upper(name.substr(0, 1)) == Upper(pattern.substr(0, 1)) &&
           Matches(name.substr(1), pattern.substr(1));
}

Node* Find(const Node& folder, std::string_view name) {
    Node* found = nullptr;
    for (const auto& child : folder.children) {
        if (child->name == name) return child.get();
        if (Upper(child->name) != Upper(name)) continue;
        if (found == nullptr || Precedes(*child, *found)) found = child.get();
    }
    return found;
}

bool Actor::MayTake(const Node& node) const {
    const Node& folder = *node.parent;
    if (isRoot) return true;
    const bool isSticky = (folder.mode & 01000) != 0;
    if (isSticky && node.isForeign && folder.isForeign) return false;
    return MayChange(folder);
}

bool Actor::MayReadAll(const Node& node) const {
    const bool mustEnter = node.isFolder && !node.children.empty();
    if (!MayRead(node) || (mustEnter && !MayEnter(node))) return false;
    return std::ranges::all_of(node.children,
                               [this](const auto& child) { return MayReadAll(*child); });
}

namespace {

bool AddLines(const Node& node, std::vector<std::string>& lines) {
    const std::string mode = ModeText(node.mode);
    const std::size_t before = lines.size();
    bool isHolding = false;
    for (const auto& child : node.children) {
        isHolding = AddLines(*child, lines) || isHolding;
    }
    if (!node.isFolder) {
        lines.push_back(node.Path() + " " + mode + " " + node.content);
        return true;
    }
    // Those that were made on the way have the mode that the system gives.
    if (node.isOld) {
        lines.push_back(node.Path() + "/ " + mode);
        return true;
    }
    if (isHolding) lines.push_back(node.Path() + "/");
    return lines.size() > before;
}

} // namespace

std::vector<std::string> LinesOf(const Node& root) {
    std::vector<std::string> lines;
    for (const auto& child : root.children) {
        AddLines(*child, lines);
    }
    std::ranges::sort(lines);
    return lines;
}

} // namespace tarvix::model
