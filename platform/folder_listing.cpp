#include "platform/folder_listing.h"

#include "text/case.h"
#include "text/first_eight.h"

#include <algorithm>
#include <span>

namespace tarvix::platform {

namespace {
enum Flag : std::uint8_t { kIsFolder = 1, kIsLink = 2, kIsBoundary = 4 };

std::uint8_t FlagsOf(const FolderEntry& entry) {
    return static_cast<std::uint8_t>((entry.isFolder ? kIsFolder : 0) |
                                     (entry.isLink ? kIsLink : 0) |
                                     (entry.isBoundary ? kIsBoundary : 0));
}

constexpr std::size_t kKeptRoom = 4096; // names

// Puts names in the order of their upper-case forms, ties by exact text. Eight bytes at a time:
// most comparisons are of numbers, and only names that agree so far look at the next ones.
class NameSorter {
  public:
    // What stands at each place then, by its index before. Lives until the next call.
    struct Item {
        std::uint64_t key; // eight bytes of its form
        std::uint32_t index;
    };
    std::span<const Item> Sort(const FolderListing& names) {
        text_.clear();
        ends_.assign(1, 0);
        items_.clear();
        for (std::uint32_t i = 0; i < names.Size(); ++i) {
            text::AppendUpper(text_, names[i].name);
            ends_.push_back(text_.size());
            items_.push_back({0, i});
        }
        SortFrom(names, items_, 0);
        return items_;
    }
    void GiveBackRoom() {
        if (items_.size() > kKeptRoom) *this = {};
    }

  private:
    static constexpr std::size_t kAtOnce = 8;     // bytes
    static constexpr std::size_t kWorthKeys = 16; // names

    std::string_view FormOf(const Item& item) const {
        const std::size_t begin = ends_[item.index];
        return std::string_view(text_).substr(begin, ends_[item.index + 1] - begin);
    }

    // Names that agree up to there.
    void SortFrom(const FolderListing& names, std::span<Item> items, std::size_t depth) {
        bool goesOn = items.size() >= kWorthKeys;
        for (Item& item : items) {
            const std::string_view form = FormOf(item);
            item.key = text::FirstEight(form.substr(std::min(depth, form.size())));
            goesOn = goesOn && form.size() > depth;
        }
        if (!goesOn) return SortAtOnce(names, items);
        std::ranges::sort(items, {}, &Item::key);
        for (std::size_t begin = 0; begin < items.size();) {
            std::size_t end = begin + 1;
            while (end < items.size() && items[end].key == items[begin].key)
                ++end;
            const auto equal = items.subspan(begin, end - begin);
            if (equal.size() > 1) SortFrom(names, equal, depth + kAtOnce);
            begin = end;
        }
    }

    void SortAtOnce(const FolderListing& names, std::span<Item> items) {
        std::ranges::sort(items, [this, &names](const Item& a, const Item& b) {
            if (a.key != b.key) return a.key < b.key;
            if (const int order = FormOf(a).compare(FormOf(b)); order != 0) return order < 0;
            return names[a.index].name < names[b.index].name;
        });
    }

    std::string text_; // all forms, so that a comparison neither folds nor allocates
    std::vector<std::size_t> ends_;
    std::vector<Item> items_;
};
} // namespace

void FolderListing::Clear() {
    names_.clear();
    records_.clear();
}

void FolderListing::Add(const FolderEntry& entry) {
    records_.push_back({static_cast<std::uint32_t>(names_.size()),
                        static_cast<std::uint16_t>(entry.name.size()), FlagsOf(entry)});
    names_ += entry.name;
}

FolderEntry FolderListing::operator[](std::size_t index) const {
    const Record& record = records_[index];
    return {std::string_view(names_).substr(record.offset, record.length),
            (record.flags & kIsFolder) != 0, (record.flags & kIsLink) != 0,
            (record.flags & kIsBoundary) != 0};
}

void FolderListing::SortByName() {
    static thread_local NameSorter sorter; // its room is kept for the next folder
    static thread_local std::vector<Record> sorted;
    sorted.clear();
    for (const auto& item : sorter.Sort(*this))
        sorted.push_back(records_[item.index]);
    std::ranges::copy(sorted, records_.begin());
    sorter.GiveBackRoom();
    if (sorted.size() > kKeptRoom) sorted = {};
}

void FolderListing::ShrinkToFit() {
    names_.shrink_to_fit();
    records_.shrink_to_fit();
}

} // namespace tarvix::platform
