#pragma once

#include "tests/model/model_tree.h"
#include "tests/model/request.h"

#include <string>
#include <vector>

namespace tarvix::model {

// What a run should leave, and say by its exit code.
struct Expected {
    int exitCode = 0;                 // -1 for any
    std::vector<std::string> trashed; // contents of files, sorted
    std::vector<std::string> answers; // to what will be asked, so that the run goes on
};

// Does to the tree what a request should do to it. `root` is the folder that the tree is, as a
// path; what is looked for lies in "p/in".
Expected Apply(Node& tree, const std::string& root, const Request& request, const Actor& actor);

} // namespace tarvix::model
