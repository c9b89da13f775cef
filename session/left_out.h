#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace tarvix::session {

constexpr std::size_t kAttributeBoxes = 10;

// How many objects the last search left out for their attributes alone: an object counts for the
// first of its attributes that an empty box refuses.
struct LeftOut {
    std::array<std::int64_t, kAttributeBoxes> byBox{}; // in the order of the boxes
    std::int64_t withoutBox = 0;                       // for an attribute that no box allows
    std::int64_t subfolders = 0; // right below the locations, by a search that found nothing
    bool foundNothing = false;   // that search, or any other

    std::int64_t Total() const { return std::accumulate(byBox.begin(), byBox.end(), withoutBox); }
};

} // namespace tarvix::session
