#pragma once

#include <cstdint>
#include <span>

namespace tarvix::results {

// A row by its place, with a number that it goes by.
struct RowKey {
    std::uint64_t key;
    std::uint32_t row;
};

// Puts them in the order of their keys. They come by ascending rows, and so do those of one key
// afterwards.
void SortByKey(std::span<RowKey> items);

} // namespace tarvix::results
