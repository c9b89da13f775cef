#pragma once

#include "generate/file_tree.h"
#include "generate/name_index.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::generate {

// How many candidates of one object get their size read.
constexpr std::size_t kMostCandidates = 20;

// Answers which files of one folder tree are named like others. The tree is read once.
class SimilarFinder {
  public:
    // False when the user stopped the reading.
    bool Read(session::Session& session, std::string_view folder);

    // Drive paths of the files that fit one of the three patterns of that base name, those of the
    // narrower ones first, each in the order of the tree; none twice, `ownPath` not among them, and
    // kMostCandidates at most.
    std::vector<std::string> FindSimilar(std::string_view baseName, std::string_view ownPath) const;

    const FileTree& Tree() const { return tree_; }

  private:
    FileTree tree_;
    std::optional<NameIndex> index_;
};

} // namespace tarvix::generate
