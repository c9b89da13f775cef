#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// One name in a folder. The view lives as long as the listing it came from stays unchanged.
struct FolderEntry {
    std::string_view name; // drive form of the name, which gives its bytes back
    bool isFolder = false; // a link to a folder is one too
    bool isLink = false;
    bool isBoundary = false; // a mount that a crawl must not walk into

    // Whether a crawl may go on inside.
    bool IsWalkable() const { return isFolder && !isLink && !isBoundary; }
};

// The names of one folder in one block of memory, in the order that `Dir` gives them.
class FolderListing {
  public:
    // Empties it, keeping its memory for the next folder.
    void Clear();
    // Copies the entry behind the others.
    void Add(const FolderEntry& entry);
    void SortByName(); // upper-case forms, ties by exact text
    std::size_t Size() const { return records_.size(); }
    // The entry at an index below Size(), in the order of adding or sorting.
    FolderEntry operator[](std::size_t index) const;

    // Names as one block and 8-byte records: what a listing costs in memory.
    std::size_t Bytes() const { return names_.size() + records_.size() * sizeof(Record); }
    // Gives back what memory is not needed, for a listing that is kept.
    void ShrinkToFit();

  private:
    struct Record {
        std::uint32_t offset;
        std::uint16_t length;
        std::uint8_t flags;
    };
    std::string names_;
    std::vector<Record> records_;
};

} // namespace tarvix::platform
