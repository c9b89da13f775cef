#include "platform/folder_listing.h"

#include "text/case.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
enum Flag : std::uint8_t { kIsFolder = 1, kIsLink = 2, kIsBoundary = 4 };

std::uint8_t FlagsOf(const FolderEntry& entry) {
    return static_cast<std::uint8_t>((entry.isFolder ? kIsFolder : 0) |
                                     (entry.isLink ? kIsLink : 0) |
                                     (entry.isBoundary ? kIsBoundary : 0));
}
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
    // One block of upper-case forms, so that a comparison neither folds nor allocates.
    std::string keys;
    keys.reserve(names_.size());
    struct Sorted {
        std::string_view key;
        Record record;
    };
    std::vector<std::size_t> ends;
    ends.reserve(records_.size());
    for (std::size_t i = 0; i < records_.size(); ++i) {
        text::AppendUpper(keys, (*this)[i].name);
        ends.push_back(keys.size());
    }
    std::vector<Sorted> order;
    order.reserve(records_.size());
    std::size_t begin = 0;
    for (std::size_t i = 0; i < records_.size(); ++i) {
        order.push_back({std::string_view(keys).substr(begin, ends[i] - begin), records_[i]});
        begin = ends[i];
    }
    const std::string_view names = names_;
    std::sort(order.begin(), order.end(), [names](const Sorted& a, const Sorted& b) {
        const int keyOrder = a.key.compare(b.key);
        if (keyOrder != 0) return keyOrder < 0;
        return names.substr(a.record.offset, a.record.length) <
               names.substr(b.record.offset, b.record.length);
    });
    for (std::size_t i = 0; i < records_.size(); ++i)
        records_[i] = order[i].record;
}

void FolderListing::ShrinkToFit() {
    names_.shrink_to_fit();
    records_.shrink_to_fit();
}

} // namespace tarvix::platform
