#include "results/text_order.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

namespace tarvix::results {

namespace {

constexpr std::size_t kAtOnce = sizeof(std::uint64_t);

struct TextItem {
    std::uint64_t key;
    std::uint32_t row;
};
using TextItems = std::span<TextItem>;

// The first eight bytes as a number that orders like them.
std::uint64_t FirstEight(std::string_view text) {
    std::uint64_t bytes = 0;
    if (!text.empty()) std::memcpy(&bytes, text.data(), std::min(text.size(), kAtOnce));
    if constexpr (std::endian::native == std::endian::little) bytes = __builtin_bswap64(bytes);
    return bytes;
}

// Eight bytes at a time: each pass compares numbers alone, and only rows that agree so far go on to
// the next eight bytes.
class ByTexts {
  public:
    ByTexts(const CellTexts& upper, const CellTexts* exact, fields::SortDirection direction)
        : upper_(upper), exact_(exact),
          descending_(direction == fields::SortDirection::kDescending) {}

    void Sort(TextItems items, std::size_t depth) const {
        for (TextItem& item : items)
            item.key = KeyAt(item.row, depth);
        const auto order = [](const TextItem& a, const TextItem& b) {
            return a.key != b.key ? a.key < b.key : a.row < b.row;
        };
        // A search lists much of what it finds in order.
        if (!std::ranges::is_sorted(items, order)) std::ranges::sort(items, order);
        for (std::size_t begin = 0; begin < items.size();) {
            std::size_t end = begin + 1;
            while (end < items.size() && items[end].key == items[begin].key)
                ++end;
            if (end - begin > 1) SortEqual(items.subspan(begin, end - begin), depth + kAtOnce);
            begin = end;
        }
    }

  private:
    std::uint64_t KeyAt(std::uint32_t row, std::size_t depth) const {
        const std::string_view text = upper_[row];
        const std::uint64_t key = FirstEight(text.substr(std::min(depth, text.size())));
        return descending_ ? ~key : key;
    }

    // Rows whose texts are the same up to `depth`.
    void SortEqual(TextItems items, std::size_t depth) const {
        const bool goOn = std::ranges::all_of(
            items, [&](const TextItem& item) { return upper_[item.row].size() > depth; });
        if (goOn) {
            Sort(items, depth);
        } else {
            std::ranges::sort(items, [this](const TextItem& a, const TextItem& b) {
                const int order = Compare(a.row, b.row);
                return order != 0 ? (order < 0) != descending_ : a.row < b.row;
            });
        }
    }

    int Compare(std::uint32_t a, std::uint32_t b) const {
        const int order = upper_[a].compare(upper_[b]);
        return order == 0 && exact_ != nullptr ? (*exact_)[a].compare((*exact_)[b]) : order;
    }

    const CellTexts& upper_;
    const CellTexts* exact_;
    bool descending_;
};

} // namespace

std::vector<std::uint32_t> OrderByTexts(const CellTexts& upper, const CellTexts* exact,
                                        fields::SortDirection direction) {
    std::vector<TextItem> items(upper.Count());
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i].row = static_cast<std::uint32_t>(i);
    ByTexts(upper, exact, direction).Sort(items, 0);
    std::vector<std::uint32_t> order;
    order.reserve(items.size());
    for (const TextItem& item : items)
        order.push_back(item.row);
    return order;
}

} // namespace tarvix::results
