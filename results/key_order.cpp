#include "results/key_order.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace tarvix::results {

namespace {

// Fewer are compared faster than they are counted.
constexpr std::size_t kWorthCounting = 2048;

// One stable pass for each byte in which keys differ, the lowest first.
void SortByBytes(std::span<RowKey> items) {
    std::uint64_t different = 0;
    for (const RowKey& item : items)
        different |= item.key ^ items.front().key;
    std::vector<RowKey> room(items.size());
    std::span<RowKey> from = items;
    std::span<RowKey> to = room;
    for (unsigned shift = 0; shift < 64; shift += 8) {
        if ((different >> shift & 0xFF) == 0) continue;
        std::array<std::uint32_t, 257> starts{};
        for (const RowKey& item : from)
            ++starts[(item.key >> shift & 0xFF) + 1];
        for (std::size_t i = 1; i < starts.size(); ++i)
            starts[i] += starts[i - 1];
        for (const RowKey& item : from)
            to[starts[item.key >> shift & 0xFF]++] = item;
        std::swap(from, to);
    }
    if (from.data() != items.data()) std::ranges::copy(from, items.begin());
}

} // namespace

void SortByKey(std::span<RowKey> items) {
    const auto order = [](const RowKey& a, const RowKey& b) {
        return a.key != b.key ? a.key < b.key : a.row < b.row;
    };
    // A search lists much of what it finds in order.
    if (std::ranges::is_sorted(items, order)) return;
    if (items.size() < kWorthCounting) {
        std::ranges::sort(items, order);
    } else {
        SortByBytes(items);
    }
}

} // namespace tarvix::results
