#include "search/candidates.h"

namespace tarvix::search {

std::vector<std::uint32_t> MatchingNames(FolderList& list, const NameMatch& match,
                                         std::size_t index) {
    std::vector<std::uint32_t> positions;
    const platform::FolderListing& names = list.NamesOf(index);
    const auto take = [&](std::uint32_t at) {
        const platform::FolderEntry entry = names[at];
        const bool fits = !entry.isFolder && IsListable(entry.name);
        if (fits && match.CheckNameMatch(entry.name)) positions.push_back(at);
    };
    if (list.At(index).isVisited) {
        for (const std::uint32_t at : list.At(index).visit.wanted)
            take(at);
    } else {
        for (std::uint32_t at = 0; at < names.Size(); ++at)
            take(at);
    }
    return positions;
}

} // namespace tarvix::search
