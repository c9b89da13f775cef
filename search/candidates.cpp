#include "search/candidates.h"

#include "search/walk_end.h"
#include "session/session.h"

#include <utility>

namespace tarvix::search {

namespace {
constexpr std::size_t kPortion = 256; // files
} // namespace

FactsAhead::FactsAhead(session::Session& session, FolderList& list, std::size_t index,
                       const std::vector<std::uint32_t>& positions)
    : ahead_(session.files()) {
    ahead_.WhileWaiting([&session] {
        session.Yield();
        return TestFlags(session.state).has_value();
    });
    const platform::FolderListing& all = list.NamesOf(index);
    platform::FolderListing names;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        names.Add(all[positions[i]]);
        if (names.Size() < kPortion && i + 1 < positions.size()) continue;
        ahead_.OrderFacts(list.At(index).strFolderLong, std::exchange(names, {}));
    }
}

std::optional<platform::ObjectFacts> FactsAhead::Next() {
    if (next_ == portion_.size()) {
        if (!ahead_.TakeFacts(portion_)) portion_.assign(1, std::nullopt);
        next_ = 0;
    }
    return portion_[next_++];
}

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
