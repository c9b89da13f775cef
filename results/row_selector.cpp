#include "results/row_selector.h"

#include "text/case.h"

#include <algorithm>

namespace tarvix::results {

void RowSelector::Apply(std::size_t first, std::size_t last, bool keepOthers) {
    if (!keepOthers) {
        for (ResultRow& row : rows_.Added())
            row.selected = false;
        rows_.UnselectSpacers();
    }
    for (std::size_t i = first; i <= last && i < rows_.Count(); ++i) {
        if (!rows_.IsSpacer(i)) rows_.At(i).selected = true;
    }
}

void RowSelector::SelectOnly(std::size_t row) {
    if (!CanSelect(row)) return;
    anchor_ = row;
    Apply(row, row, false);
}

void RowSelector::Toggle(std::size_t row) {
    if (!CanSelect(row)) return;
    anchor_ = row;
    rows_.At(row).selected = !rows_.At(row).selected;
}

void RowSelector::ExtendTo(std::size_t row, bool keepOthers) {
    if (!CanSelect(row)) return;
    if (anchor_ >= rows_.Count()) anchor_ = row;
    Apply(std::min(anchor_, row), std::max(anchor_, row), keepOthers);
}

std::optional<std::size_t> RowSelector::Neighbour(std::size_t row, std::ptrdiff_t step) const {
    if (rows_.Count() == 0) return std::nullopt;
    const auto highest = static_cast<std::ptrdiff_t>(rows_.Count()) - 1;
    const auto from = static_cast<std::ptrdiff_t>(row);
    const auto target = std::clamp(from + step, std::ptrdiff_t{0}, highest);
    const std::ptrdiff_t onward = step < 0 ? -1 : 1;
    for (auto at = target; at >= 0 && at <= highest && at != from; at += onward) {
        if (CanSelect(static_cast<std::size_t>(at))) return static_cast<std::size_t>(at);
    }
    for (auto at = target; at != from && at >= 0 && at <= highest; at -= onward) {
        if (CanSelect(static_cast<std::size_t>(at))) return static_cast<std::size_t>(at);
    }
    return std::nullopt;
}

std::optional<std::size_t> RowSelector::End(bool last) const {
    for (std::size_t i = 0; i < rows_.Count(); ++i) {
        const std::size_t row = last ? rows_.Count() - 1 - i : i;
        if (CanSelect(row)) return row;
    }
    return std::nullopt;
}

std::optional<std::size_t> RowSelector::StartingWith(std::string_view text, std::size_t row,
                                                     bool andThis) const {
    const std::string wanted = text::Lower(text);
    for (std::size_t i = andThis ? 0 : 1; i < rows_.Count() + 1; ++i) {
        const std::size_t at = (row + i) % rows_.Count();
        if (CanSelect(at) && text::Lower(rows_.At(at).name).starts_with(wanted)) return at;
    }
    return std::nullopt;
}

} // namespace tarvix::results
