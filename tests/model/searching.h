#pragma once

#include "tests/model/model_tree.h"
#include "tests/model/request.h"

#include <vector>

namespace tarvix::model {

struct Found {
    std::vector<Node*> rows; // in the order of the list
    bool hasUnread = false;
};

// What a request should find in "p/in" of the tree.
Found Search(const Node& tree, const Request& request, const Actor& actor);

} // namespace tarvix::model
