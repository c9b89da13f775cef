#pragma once

#include "fields/controls.h"
#include "text/case.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::results {

// Texts of one column, one behind the other.
class CellTexts {
  public:
    explicit CellTexts(std::size_t rows) {
        starts_.reserve(rows + 1);
        starts_.push_back(0);
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
    bool operator==(const CellTexts&) const = default;

  private:
    std::string text_;
    std::vector<std::size_t> starts_;
};

// The rows in the order of their texts in upper case, by bytes. Texts that are one go by `exact`,
// if there is one, then as the rows stood.
std::vector<std::uint32_t> OrderByTexts(const CellTexts& upper, const CellTexts* exact,
                                        fields::SortDirection direction);

} // namespace tarvix::results
