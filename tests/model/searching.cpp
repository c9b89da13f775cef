#include "tests/model/searching.h"

#include <algorithm>
#include <deque>

namespace tarvix::model {

namespace {

std::vector<Node*> Sorted(const Node& folder) {
    std::vector<Node*> nodes;
    for (const auto& child : folder.children) {
        nodes.push_back(child.get());
    }
    std::ranges::sort(nodes, [](const Node* a, const Node* b) { return Precedes(*a, *b); });
    return nodes;
}

bool Fits(const Node& node, const Request& request) {
    if (!Matches(node.name, request.pattern)) return false;
    return request.anyAttribute || (!node.IsHidden() && !node.IsReadOnly());
}

} // namespace

Found Search(const Node& tree, const Request& request, const Actor& actor) {
    Found found;
    std::deque<Node*> folders{Find(*Find(tree, "p"), "in")};
    const Node* const root = folders.front();
    for (; !folders.empty(); folders.pop_front()) {
        const Node& folder = *folders.front();
        if (!actor.MayRead(folder) || (&folder != root && !actor.MayEnter(*folder.parent))) {
            found.hasUnread = true;
            continue;
        }
        for (Node* node : Sorted(folder)) {
            if (node->isFolder && request.hasSubfolders) folders.push_back(node);
            if (node->isFolder != request.wantsFolders) continue;
            if (!actor.MayEnter(folder)) {
                found.hasUnread |= Matches(node->name, request.pattern);
            } else if (Fits(*node, request)) {
                found.rows.push_back(node);
            }
        }
    }
    std::ranges::stable_sort(found.rows,
                             [](const Node* a, const Node* b) { return Precedes(*a, *b); });
    return found;
}

} // namespace tarvix::model
