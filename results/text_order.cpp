#include "results/text_order.h"

#include "results/key_order.h"
#include "text/first_eight.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <numeric>
#include <optional>
#include <utility>

namespace tarvix::results {

namespace {

constexpr std::size_t kAtOnce = sizeof(std::uint64_t);

// Eight bytes at a time: each pass compares numbers alone, and only rows that agree so far go on to
// the next eight bytes.
class ByTexts {
  public:
    ByTexts(const CellTexts& upper, std::span<const std::string_view> exact,
            fields::SortDirection direction)
        : upper_(upper), exact_(exact),
          descending_(direction == fields::SortDirection::kDescending), items_(upper.Count()),
          begins_(upper.Count()) {
        for (std::size_t i = 0; i < items_.size(); ++i)
            items_[i].row = static_cast<std::uint32_t>(i);
    }

    RowOrder Sorted() {
        Sort(items_, 0);
        RowOrder sorted;
        sorted.order.reserve(items_.size());
        for (std::size_t i = 0; i < items_.size(); ++i) {
            sorted.order.push_back(items_[i].row);
            if (begins_[i]) sorted.groups.push_back(static_cast<std::uint32_t>(i));
        }
        return sorted;
    }

  private:
    using Items = std::span<RowKey>;

    void Sort(Items items, std::size_t depth) {
        for (RowKey& item : items)
            item.key = KeyAt(item.row, depth);
        SortByKey(items);
        for (std::size_t begin = 0; begin < items.size();) {
            std::size_t end = begin + 1;
            while (end < items.size() && items[end].key == items[begin].key)
                ++end;
            if (begin > 0) NoteGroup(items[begin]);
            if (end - begin > 1) SortEqual(items.subspan(begin, end - begin), depth + kAtOnce);
            begin = end;
        }
    }

    std::uint64_t KeyAt(std::uint32_t row, std::size_t depth) const {
        const std::string_view text = upper_[row];
        const std::uint64_t key = text::FirstEight(text.substr(std::min(depth, text.size())));
        return descending_ ? ~key : key;
    }

    // Rows whose texts are the same up to `depth`.
    void SortEqual(Items items, std::size_t depth) {
        const bool goOn = std::ranges::all_of(
            items, [&](const RowKey& item) { return upper_[item.row].size() > depth; });
        if (goOn) return Sort(items, depth);
        std::ranges::sort(items, [this](const RowKey& a, const RowKey& b) {
            const int order = Compare(a.row, b.row);
            return order != 0 ? (order < 0) != descending_ : a.row < b.row;
        });
        for (std::size_t i = 1; i < items.size(); ++i) {
            if (upper_[items[i].row] != upper_[items[i - 1].row]) NoteGroup(items[i]);
        }
    }

    int Compare(std::uint32_t a, std::uint32_t b) const {
        const int order = upper_[a].compare(upper_[b]);
        return order == 0 && !exact_.empty() ? exact_[a].compare(exact_[b]) : order;
    }

    void NoteGroup(const RowKey& first) {
        begins_[static_cast<std::size_t>(&first - items_.data())] = true;
    }

    const CellTexts& upper_;
    std::span<const std::string_view> exact_;
    bool descending_;
    std::vector<RowKey> items_;
    std::vector<bool> begins_; // a group
};

// By their hash, in a table that is never more than half full.
class DifferentTexts {
  public:
    DifferentTexts(std::size_t most, std::vector<std::string_view>& texts)
        : texts_(texts), slots_(std::bit_ceil(2 * most + 2)) {}

    std::uint32_t NumberOf(std::string_view text) {
        const std::size_t mask = slots_.size() - 1;
        const std::size_t hash = std::hash<std::string_view>{}(text);
        const auto rest = static_cast<std::uint32_t>(hash >> 32);
        std::size_t at = hash & mask;
        for (; slots_[at].next != 0; at = (at + 1) & mask) {
            const std::uint32_t number = slots_[at].next - 1;
            if (slots_[at].rest == rest && texts_[number] == text) return number;
        }
        texts_.push_back(text);
        slots_[at] = {rest, static_cast<std::uint32_t>(texts_.size())};
        return slots_[at].next - 1;
    }

  private:
    struct Slot {
        std::uint32_t rest = 0; // of the hash
        std::uint32_t next = 0; // its number plus 1; 0 is free
    };
    std::vector<std::string_view>& texts_;
    std::vector<Slot> slots_;
};

// Of each text its place among the different ones, and of each place whether a group begins there.
struct TextRanks {
    std::vector<std::uint32_t> ofTexts;
    std::vector<bool> begins;
};

TextRanks RanksOf(std::span<const std::string_view> texts, fields::SortDirection direction) {
    CellTexts upper(texts.size());
    for (const std::string_view text : texts)
        upper.AddUpper(text);
    const RowOrder sorted = OrderByTexts(upper, texts, direction);
    TextRanks ranks;
    ranks.ofTexts.resize(texts.size());
    auto group = sorted.groups.begin();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::uint32_t text = sorted.order[i];
        const bool begins = group != sorted.groups.end() && *group == i;
        if (begins) ++group;
        if (i == 0 || texts[text] != texts[sorted.order[i - 1]]) ranks.begins.push_back(begins);
        ranks.ofTexts[text] = static_cast<std::uint32_t>(ranks.begins.size() - 1);
    }
    return ranks;
}

// The order of texts that stand in it already, as those of one folder mostly do; nothing where they
// don't.
std::optional<RowOrder> OrderAsItIs(const CellTexts& upper, std::span<const std::string_view> exact,
                                    fields::SortDirection direction) {
    const bool descends = direction == fields::SortDirection::kDescending;
    RowOrder sorted;
    for (std::size_t i = 1; i < upper.Count(); ++i) {
        int order = upper[i - 1].compare(upper[i]);
        if (order != 0) sorted.groups.push_back(static_cast<std::uint32_t>(i));
        if (order == 0 && !exact.empty()) order = exact[i - 1].compare(exact[i]);
        if (descends ? order < 0 : order > 0) return std::nullopt;
    }
    sorted.order.resize(upper.Count());
    std::iota(sorted.order.begin(), sorted.order.end(), 0U);
    return sorted;
}

} // namespace

RowOrder OrderByTexts(const CellTexts& upper, std::span<const std::string_view> exact,
                      fields::SortDirection direction) {
    if (auto sorted = OrderAsItIs(upper, exact, direction)) return std::move(*sorted);
    return ByTexts(upper, exact, direction).Sorted();
}

RowOrder OrderByClasses(std::span<const std::string_view> texts,
                        std::span<const std::uint32_t> classes, fields::SortDirection direction) {
    const TextRanks ranks = RanksOf(texts, direction);
    std::vector<std::uint32_t> starts(ranks.begins.size() + 1);
    for (const std::uint32_t number : classes)
        ++starts[ranks.ofTexts[number] + 1];
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    RowOrder sorted;
    bool begins = false; // since the last rank that has rows
    for (std::size_t rank = 0; rank < ranks.begins.size(); ++rank) {
        begins = begins || ranks.begins[rank];
        if (starts[rank] == starts[rank + 1]) continue;
        if (begins && starts[rank] > 0) sorted.groups.push_back(starts[rank]);
        begins = false;
    }
    sorted.order.resize(classes.size());
    for (std::uint32_t row = 0; row < classes.size(); ++row)
        sorted.order[starts[ranks.ofTexts[classes[row]]]++] = row;
    return sorted;
}

bool FindDifferentTexts(std::span<const std::string_view> all, std::size_t most,
                        std::vector<std::string_view>& texts, std::vector<std::uint32_t>& classes) {
    DifferentTexts known(most + 1, texts);
    classes.reserve(all.size());
    for (const std::string_view text : all) {
        classes.push_back(known.NumberOf(text));
        if (texts.size() > most) return false;
    }
    return true;
}

} // namespace tarvix::results
