#include "search/candidates.h"

#include "session/session.h"

#include <algorithm>
#include <utility>

namespace tarvix::search {

namespace {
constexpr std::size_t kAhead = 64;    // folders
constexpr std::size_t kPortion = 256; // files
} // namespace

Candidates::Candidates(session::Session& session, FolderList& list, const NameMatch& match,
                       std::size_t first)
    : session_(session), list_(list), match_(match), ahead_(session.files()), next_(first) {}

void Candidates::OrderUpTo(std::size_t index) {
    for (; next_ < std::min(index, list_.Count()); ++next_) {
        list_.EnsureListed(next_);
        auto positions = MatchingNames(session_, list_, match_, next_);
        platform::FolderListing names;
        for (const std::uint32_t position : positions) {
            names.Add(list_.Names()[position]);
        }
        ahead_.OrderFacts(list_.At(next_).strFolderLong, std::move(names));
        ordered_.push_back({next_, std::move(positions)});
    }
}

void Candidates::Take(std::size_t index, FolderCandidates& result) {
    OrderUpTo(index + kAhead);
    while (true) {
        Ordered& oldest = ordered_[taken_++];
        ahead_.TakeFacts(result.facts);
        if (oldest.index != index) continue; // a folder that the walk passed over
        result.positions = std::move(oldest.positions);
        break;
    }
    if (taken_ < kAhead) return;
    ordered_.erase(ordered_.begin(), ordered_.begin() + static_cast<std::ptrdiff_t>(taken_));
    taken_ = 0;
}

FactsAhead::FactsAhead(session::Session& session, const FolderList& list, std::size_t index,
                       const std::vector<std::uint32_t>& positions)
    : ahead_(session.files()) {
    platform::FolderListing names;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        names.Add(list.Names()[positions[i]]);
        if (names.Size() < kPortion && i + 1 < positions.size()) continue;
        ahead_.OrderFacts(list.At(index).strFolderLong, std::exchange(names, {}));
    }
}

std::optional<platform::ObjectFacts> FactsAhead::Next() {
    if (next_ == portion_.size()) {
        ahead_.TakeFacts(portion_);
        next_ = 0;
    }
    return portion_[next_++];
}

std::vector<std::uint32_t> MatchingNames(session::Session& session, const FolderList& list,
                                         const NameMatch& match, std::size_t index) {
    std::vector<std::uint32_t> positions;
    const CrawlFolder& folder = list.At(index);
    for (std::uint32_t at = folder.namesBegin; at < folder.namesEnd; ++at) {
        const std::string_view name = list.Names()[at].name;
        if (match.CheckNameMatch(name) && !name.ends_with(' ') &&
            IsNameValid(session, name, folder.strFolderLong, true)) {
            positions.push_back(at);
        }
    }
    return positions;
}

} // namespace tarvix::search
