#pragma once

#include "fields/controls.h"
#include "text/case.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::results {

// Texts of one column, one behind the other.
class CellTexts {
  public:
    explicit CellTexts(std::size_t rows, std::size_t bytes = 0) {
        starts_.reserve(rows + 1);
        starts_.push_back(0);
        text_.reserve(bytes);
    }
    void Add(std::string_view cell) {
        text_ += cell;
        starts_.push_back(text_.size());
    }
    void AddUpper(std::string_view cell) {
        text::AppendUpper(text_, cell);
        starts_.push_back(text_.size());
    }
    std::string_view operator[](std::size_t row) const {
        return std::string_view(text_).substr(starts_[row], starts_[row + 1] - starts_[row]);
    }
    std::size_t Count() const { return starts_.size() - 1; }

  private:
    std::string text_;
    std::vector<std::size_t> starts_;
};

// Rows as they are to stand.
struct RowOrder {
    std::vector<std::uint32_t> order; // row i is the one that stood at order[i]
    // The rows behind the first whose text differs from that of the row before, case not counted.
    std::vector<std::uint32_t> groups;
};

// The rows in the order of their texts in upper case, by bytes. Texts that are one go by `exact`,
// if there are any, then as the rows stood.
RowOrder OrderByTexts(const CellTexts& upper, std::span<const std::string_view> exact,
                      fields::SortDirection direction);

// The same of texts of which many are equal: `classes` has for each row the place of its text in
// `texts`. A text may stand there twice.
RowOrder OrderByClasses(std::span<const std::string_view> texts,
                        std::span<const std::uint32_t> classes, fields::SortDirection direction);

// The different texts in the order of their coming, and for each text which it is; false, with
// something of both, when there are more than `most`.
bool FindDifferentTexts(std::span<const std::string_view> all, std::size_t most,
                        std::vector<std::string_view>& texts, std::vector<std::uint32_t>& classes);

} // namespace tarvix::results
