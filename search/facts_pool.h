#pragma once

#include "platform/folder_visit.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace tarvix::search {

// Facts of many files, from where they are taken in their order. They lie in large blocks, each of
// which is given back as soon as nobody wants any of it: the rows that are made of them need room.
class FactsPool {
  public:
    // Gives the position of the first; the others follow.
    std::size_t Add(std::span<const platform::BriefFacts> facts);
    const platform::BriefFacts& At(std::size_t position) const {
        return blocks_[position / kBlock][position % kBlock];
    }
    // Those in front of this position are wanted no more.
    void DropBefore(std::size_t position);
    void Clear();

  private:
    static constexpr std::size_t kBlock = 4096; // 256 KB

    std::vector<std::unique_ptr<platform::BriefFacts[]>> blocks_;
    std::size_t count_ = 0;
    std::size_t dropped_ = 0; // blocks at the front
};

} // namespace tarvix::search
