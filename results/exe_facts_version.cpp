#include "results/exe_facts_bytes.h"

#include <vector>

namespace tarvix::results {

namespace {

constexpr std::uint16_t kVersionResource = 16;
constexpr std::size_t kFixedInfoSize = 52;

// The version resource: its head, which holds the size of the fixed record at byte 2, and then the
// fixed record.
std::optional<VersionRecord> FixedRecord(ExeBytes& bytes, std::uint64_t offset,
                                         std::size_t headSize) {
    constexpr std::uint32_t kSignature = 0xFEEF04BD;
    const std::string_view resource = bytes.At(offset, headSize + kFixedInfoSize);
    if (resource.empty() || WordAt(resource, 2) < kFixedInfoSize) return std::nullopt;
    const std::string_view info = resource.substr(headSize);
    if (DoubleWordAt(info, 0) != kSignature) return std::nullopt;
    return VersionRecord{
        .major = WordAt(info, 10), .minor = WordAt(info, 8), .os = DoubleWordAt(info, 32)};
}

// ---- PE: sections, and a tree of three levels: type, name, language ----

struct Section {
    std::uint32_t address = 0;
    std::uint32_t size = 0; // in the file
    std::uint32_t offset = 0;
};

// Programs that can be loaded have at most 96.
std::vector<Section> ReadSections(ExeBytes& bytes, std::uint64_t table, std::size_t count) {
    constexpr std::size_t kEntry = 40;
    const std::string_view entries = bytes.At(table, std::min<std::size_t>(count, 96) * kEntry);
    std::vector<Section> sections;
    sections.reserve(entries.size() / kEntry);
    for (std::size_t at = 0; at < entries.size(); at += kEntry) {
        sections.push_back({.address = DoubleWordAt(entries, at + 12),
                            .size = DoubleWordAt(entries, at + 16),
                            .offset = DoubleWordAt(entries, at + 20)});
    }
    return sections;
}

// Where an address of the loaded program lies in the file.
std::optional<std::uint64_t> FileOffset(const std::vector<Section>& sections,
                                        std::uint32_t address) {
    for (const Section& section : sections) {
        if (address < section.address || address - section.address >= section.size) continue;
        return std::uint64_t{section.offset} + (address - section.address);
    }
    return std::nullopt;
}

// The address of the resource tree, 0 if there is none.
std::uint32_t ResourceAddress(ExeBytes& bytes, const ExeHeader& header) {
    constexpr std::size_t kOptional = 24;
    constexpr std::size_t kResourceEntry = 2;
    const std::string_view start = bytes.At(header.offset, kOptional + 2);
    if (start.empty()) return 0;
    const std::size_t optionalSize = WordAt(start, 20);
    const std::uint16_t magic = WordAt(start, kOptional);
    if (magic != 0x10B && magic != 0x20B) return 0;
    const std::size_t entries = magic == 0x10B ? 96 : 112;
    const std::size_t needed = entries + (kResourceEntry + 1) * 8;
    if (optionalSize < needed) return 0;
    const std::string_view optional = bytes.At(header.offset + kOptional, needed);
    if (optional.empty() || DoubleWordAt(optional, entries - 4) <= kResourceEntry) return 0;
    return DoubleWordAt(optional, entries + kResourceEntry * 8);
}

// A directory of the tree at a place in the file. Its named entries stand before those with a
// number.
struct Directory {
    std::uint64_t entries = 0;
    std::size_t named = 0;
    std::size_t numbered = 0;
};

std::optional<Directory> ReadDirectory(ExeBytes& bytes, std::uint64_t offset) {
    const std::string_view head = bytes.At(offset, 16);
    if (head.empty()) return std::nullopt;
    return Directory{offset + 16, WordAt(head, 12), WordAt(head, 14)};
}

std::optional<std::uint32_t> NumberedEntry(ExeBytes& bytes, const Directory& directory,
                                           std::uint32_t number) {
    constexpr std::size_t kMostEntries = 256; // they ascend, and the numbers wanted are small
    const std::size_t count = std::min(directory.numbered, kMostEntries);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view entry = bytes.At(directory.entries + (directory.named + i) * 8, 8);
        if (entry.empty()) return std::nullopt;
        if (DoubleWordAt(entry, 0) == number) return DoubleWordAt(entry, 4);
    }
    return std::nullopt;
}

std::optional<std::uint32_t> FirstEntry(ExeBytes& bytes, const Directory& directory) {
    if (directory.named + directory.numbered == 0) return std::nullopt;
    const std::string_view entry = bytes.At(directory.entries, 8);
    if (entry.empty()) return std::nullopt;
    return DoubleWordAt(entry, 4);
}

// The place, from the tree's root, of the version resource's data entry. The levels are walked by
// count, so a tree that bites its tail ends here.
std::optional<std::uint32_t> VersionEntry(ExeBytes& bytes, std::uint64_t root) {
    constexpr std::uint32_t kSubdirectory = 0x80000000;
    constexpr std::uint32_t kVersionName = 1;
    std::uint32_t place = kSubdirectory;
    for (int level = 0; level < 3; ++level) {
        if ((place & kSubdirectory) == 0) return std::nullopt;
        const auto directory = ReadDirectory(bytes, root + (place & ~kSubdirectory));
        if (!directory) return std::nullopt;
        std::optional<std::uint32_t> entry;
        if (level == 0) entry = NumberedEntry(bytes, *directory, kVersionResource);
        if (level == 1) entry = NumberedEntry(bytes, *directory, kVersionName);
        if (level > 0 && !entry) entry = FirstEntry(bytes, *directory);
        if (!entry) return std::nullopt;
        place = *entry;
    }
    if ((place & kSubdirectory) != 0) return std::nullopt;
    return place;
}

std::optional<VersionRecord> PeRecord(ExeBytes& bytes, const ExeHeader& header) {
    constexpr std::size_t kHeadSize = 40; // sizes, kind, "VS_VERSION_INFO" in UTF-16, filler
    const std::uint32_t treeAddress = ResourceAddress(bytes, header);
    if (treeAddress == 0) return std::nullopt;
    const std::string_view start = bytes.At(header.offset, 24);
    const std::uint64_t table = header.offset + 24 + WordAt(start, 20);
    const std::vector<Section> sections = ReadSections(bytes, table, WordAt(start, 6));
    const auto root = FileOffset(sections, treeAddress);
    if (!root) return std::nullopt;
    const auto place = VersionEntry(bytes, *root);
    if (!place) return std::nullopt;
    const std::string_view entry = bytes.At(*root + *place, 16);
    if (entry.empty() || DoubleWordAt(entry, 4) < kHeadSize + kFixedInfoSize) return std::nullopt;
    const auto data = FileOffset(sections, DoubleWordAt(entry, 0));
    if (!data) return std::nullopt;
    return FixedRecord(bytes, *data, kHeadSize);
}

// ---- NE: a table of types, each with its resources behind it ----

// Where the first version resource of the table lies in the file.
std::optional<std::uint64_t> VersionInTable(std::string_view table) {
    constexpr std::uint16_t kNumberedType = 0x8000;
    if (table.size() < 2) return std::nullopt;
    const unsigned shift = WordAt(table, 0);
    if (shift > 15) return std::nullopt;
    std::size_t at = 2;
    while (at + 8 <= table.size() && WordAt(table, at) != 0) {
        const std::size_t count = WordAt(table, at + 2);
        const bool found = WordAt(table, at) == (kNumberedType | kVersionResource) && count != 0;
        at += 8;
        if (found && at + 2 <= table.size()) return std::uint64_t{WordAt(table, at)} << shift;
        at += count * 12;
    }
    return std::nullopt;
}

std::optional<VersionRecord> NeRecord(ExeBytes& bytes, const ExeHeader& header) {
    constexpr std::size_t kHeadSize = 20; // sizes and "VS_VERSION_INFO"
    const std::string_view head = bytes.At(header.offset, 64);
    if (head.empty()) return std::nullopt;
    const std::size_t from = WordAt(head, 0x24);
    const std::size_t to = WordAt(head, 0x26); // the names that follow the resources
    if (from >= to) return std::nullopt;
    const auto data = VersionInTable(bytes.At(header.offset + from, to - from));
    return data ? FixedRecord(bytes, *data, kHeadSize) : std::nullopt;
}

} // namespace

std::optional<VersionRecord> FindVersionRecord(ExeBytes& bytes, const ExeHeader& header) {
    if (header.kind == ExeKind::kPe) return PeRecord(bytes, header);
    if (header.kind == ExeKind::kNe) return NeRecord(bytes, header);
    return std::nullopt;
}

} // namespace tarvix::results
