#pragma once

#include "results/columns.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tarvix::results {

// How a user finds a column among so many.
enum class ColumnGroup : std::uint8_t { kUsual, kPaths, kPrograms, kLinks, kOther };
constexpr std::array<ColumnGroup, 5> kColumnGroups{ColumnGroup::kUsual, ColumnGroup::kPaths,
                                                   ColumnGroup::kPrograms, ColumnGroup::kLinks,
                                                   ColumnGroup::kOther};
// "Paths", "Programs" ...
std::string_view TitleOf(ColumnGroup group);
ColumnGroup GroupOf(int column);

// Whether the column shows in a list that nobody has changed.
bool IsUsual(int column);
// Whether more room shows more of its cells: paths and other long texts.
bool IsWide(int column);

} // namespace tarvix::results
