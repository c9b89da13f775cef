#include "generate/similar_finder.h"

#include "generate/similar_patterns.h"
#include "text/case.h"

#include <algorithm>

namespace tarvix::generate {

bool SimilarFinder::Read(session::Session& session, std::string_view folder) {
    if (!tree_.Read(session, folder)) return false;
    index_.emplace(tree_);
    return true;
}

std::vector<std::string> SimilarFinder::FindSimilar(std::string_view baseName,
                                                    std::string_view ownPath) const {
    std::vector<std::size_t> found;
    std::vector<std::string> candidates;
    for (const std::string& pattern : SimilarPatterns(baseName)) {
        index_->Find(pattern, [&](std::size_t file) {
            if (std::ranges::find(found, file) != found.end()) return true;
            found.push_back(file);
            std::string path = tree_.Path(file);
            if (!text::EqualNoCase(path, ownPath)) candidates.push_back(std::move(path));
            return candidates.size() < kMostCandidates;
        });
        if (candidates.size() >= kMostCandidates) break;
    }
    return candidates;
}

} // namespace tarvix::generate
