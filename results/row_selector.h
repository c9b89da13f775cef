#pragma once

#include "results/result_list.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarvix::results {

// Extended selection on the rows' own flags, as a list of rows has it. Spacers are never selected.
class RowSelector {
  public:
    explicit RowSelector(ResultList& rows) : rows_(rows) {}

    bool CanSelect(std::size_t row) const {
        return row < rows_.Count() && !rows_.At(row).IsSpacer();
    }
    bool IsSelected(std::size_t row) const { return CanSelect(row) && rows_.At(row).selected; }

    // Selects the row alone, or turns it; the anchor moves to it. A spacer changes nothing.
    void SelectOnly(std::size_t row);
    void Toggle(std::size_t row);
    // Selects from the anchor to the row; what lies outside is unselected unless `keepOthers`.
    void ExtendTo(std::size_t row, bool keepOthers);

    // The row that lies `step` rows away, or the nearest before it that is no spacer; nothing when
    // there is none in that direction.
    std::optional<std::size_t> Neighbour(std::size_t row, std::ptrdiff_t step) const;
    // The first or last row that is no spacer.
    std::optional<std::size_t> End(bool last) const;
    // The next row after `row`, and from the start again, whose name begins with the text without
    // regard to case. With `andThis` the search begins at the row itself.
    std::optional<std::size_t> StartingWith(std::string_view text, std::size_t row,
                                            bool andThis) const;

  private:
    void Apply(std::size_t first, std::size_t last, bool keepOthers);

    ResultList& rows_;
    std::size_t anchor_ = 0;
};

} // namespace tarvix::results
