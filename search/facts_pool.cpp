#include "search/facts_pool.h"

#include <algorithm>

namespace tarvix::search {

std::size_t FactsPool::Add(std::span<const platform::BriefFacts> facts) {
    const std::size_t first = count_;
    while (!facts.empty()) {
        const std::size_t place = count_ % kBlock;
        if (place == 0)
            blocks_.push_back(std::make_unique_for_overwrite<platform::BriefFacts[]>(kBlock));
        const auto part = facts.first(std::min(facts.size(), kBlock - place));
        std::ranges::copy(part, blocks_.back().get() + place);
        count_ += part.size();
        facts = facts.subspan(part.size());
    }
    return first;
}

void FactsPool::DropBefore(std::size_t position) {
    for (; dropped_ < position / kBlock; ++dropped_)
        blocks_[dropped_].reset();
}

void FactsPool::Clear() {
    blocks_.clear();
    count_ = dropped_ = 0;
}

} // namespace tarvix::search
