#include "platform/folder_listing.h"

#include "text/case.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tarvix::platform {

namespace {
enum Flag : std::uint8_t { kIsFolder = 1, kIsLink = 2, kIsBoundary = 4 };

std::uint8_t FlagsOf(const FolderEntry& entry) {
    return static_cast<std::uint8_t>((entry.isFolder ? kIsFolder : 0) |
                                     (entry.isLink ? kIsLink : 0) |
                                     (entry.isBoundary ? kIsBoundary : 0));
}

constexpr std::size_t kKeptRoom = 4096; // names

// The first eight bytes as a number that orders like them.
std::uint64_t PrefixOf(std::string_view key) {
    std::uint64_t bytes = 0;
    if (!key.empty()) std::memcpy(&bytes, key.data(), std::min(key.size(), sizeof bytes));
    if constexpr (std::endian::native == std::endian::little) bytes = __builtin_bswap64(bytes);
    return bytes;
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
    // One block of upper-case forms, so that a comparison neither folds nor allocates; its room is
    // kept for the next folder.
    struct Sorted {
        std::uint64_t prefix;
        std::size_t begin; // of its form
        std::size_t length;
        Record record;
    };
    static thread_local std::string keys;
    static thread_local std::vector<Sorted> order;
    keys.clear();
    order.clear();
    for (std::size_t i = 0; i < records_.size(); ++i) {
        const std::size_t begin = keys.size();
        text::AppendUpper(keys, (*this)[i].name);
        const std::string_view key = std::string_view(keys).substr(begin);
        order.push_back({PrefixOf(key), begin, key.size(), records_[i]});
    }
    const std::string_view forms = keys;
    const std::string_view names = names_;
    std::sort(order.begin(), order.end(), [forms, names](const Sorted& a, const Sorted& b) {
        if (a.prefix != b.prefix) return a.prefix < b.prefix;
        const int keyOrder =
            forms.substr(a.begin, a.length).compare(forms.substr(b.begin, b.length));
        if (keyOrder != 0) return keyOrder < 0;
        return names.substr(a.record.offset, a.record.length) <
               names.substr(b.record.offset, b.record.length);
    });
    for (std::size_t i = 0; i < records_.size(); ++i)
        records_[i] = order[i].record;
    if (order.size() <= kKeptRoom) return;
    keys = {};
    order = {};
}

void FolderListing::ShrinkToFit() {
    names_.shrink_to_fit();
    records_.shrink_to_fit();
}

} // namespace tarvix::platform
