#pragma once

#include "cli/request.h"
#include "session/settings/options.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::cli {

// What can be printed of a row besides the cells of the list.
struct FactColumn {
    int column;
    std::string_view key;
    int beside; // the cell that tells the same as text; -1 for none
};
inline constexpr std::array<FactColumn, 4> kFactColumns{{
    {kNativePathColumn, "NativePath", -1},
    {kBytesColumn, "Bytes", results::kSize},
    {kModifiedColumn, "Modified", results::kDate},
    {kIsFolderColumn, "IsFolder", results::kType},
}};

// Of a column of the list or of kFactColumns: its key, and what stands over its cells.
std::string_view KeyOfOutput(int column);
std::string_view HeadOf(int column);

// By key, by caption ("Path\Name Length") or by its short word ("length"), without regard to case.
std::optional<int> FindOutputColumn(std::string_view name);
// All names that FindOutputColumn knows, keys first.
std::vector<std::string_view> OutputColumnNames();

// Every cell and fact, in this order.
std::vector<int> AllOutputColumns();
// What is printed when the request names no columns: those of `shows`, by column index, and the
// name, then the path of this machine; in JSON all facts.
std::vector<int> UsualColumns(const std::array<bool, session::kVisibilityCount>& shows,
                              RowFormat format);
// What JSON tells: these columns, the path of this machine, and the fact beside each of them.
std::vector<int> JsonColumns(std::vector<int> columns);

// The table of names for the help.
std::string ColumnHelp();

} // namespace tarvix::cli
