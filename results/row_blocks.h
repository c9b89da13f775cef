#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

namespace tarvix::results {

// Many rows, which stay where they are when more come. They lie in blocks of 256 KB: as a search
// turns the facts that it has read into rows, it frees blocks of that size.
template <class Row>
class RowBlocks {
  public:
    // Goes over rows in the order in which they were added.
    template <class Blocks, class Of>
    class Iterator {
      public:
        using iterator_concept = std::forward_iterator_tag;
        using difference_type = std::ptrdiff_t;
        using value_type = Row;

        Iterator() = default;
        Iterator(Blocks* blocks, std::size_t at) : blocks_(blocks), at_(at) {}
        Of& operator*() const { return (*blocks_)[at_]; }
        Iterator& operator++() {
            ++at_;
            return *this;
        }
        Iterator operator++(int) { return {blocks_, at_++}; }
        bool operator==(const Iterator&) const = default;

      private:
        Blocks* blocks_ = nullptr;
        std::size_t at_ = 0;
    };

    // All rows from one on.
    template <class Blocks, class Of>
    class Range {
      public:
        Range(Blocks& blocks, std::size_t first) : blocks_(&blocks), first_(first) {}
        auto begin() const { return Iterator<Blocks, Of>(blocks_, first_); }
        auto end() const { return Iterator<Blocks, Of>(blocks_, blocks_->Size()); }
        std::size_t size() const { return blocks_->Size() - first_; }
        Range From(std::size_t index) const { return {*blocks_, first_ + index}; }

      private:
        Blocks* blocks_;
        std::size_t first_;
    };

    std::size_t Size() const { return size_; }
    Row& operator[](std::size_t at) { return blocks_[at / kBlock][at % kBlock]; }
    const Row& operator[](std::size_t at) const { return blocks_[at / kBlock][at % kBlock]; }
    Range<RowBlocks, Row> From(std::size_t first) { return {*this, first}; }
    Range<const RowBlocks, const Row> From(std::size_t first) const { return {*this, first}; }

    void Add(const Row& row) {
        if (size_ % kBlock == 0) {
            blocks_.emplace_back();
            blocks_.back().reserve(kBlock);
        }
        blocks_.back().push_back(row);
        ++size_;
    }
    void Clear() {
        blocks_.clear();
        size_ = 0;
    }

  private:
    static constexpr std::size_t kBlock = (std::size_t{256} << 10) / sizeof(Row);

    std::vector<std::vector<Row>> blocks_; // all but the last are full
    std::size_t size_ = 0;
};

} // namespace tarvix::results
