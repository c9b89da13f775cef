#include "results/sorting.h"

#include "results/result_list.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/case.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::results {

namespace {

using forms::SortDirection;
using session::Session;

constexpr std::size_t kShowProgressFrom = 2000;
// From here on the Size cell runs out of digits, and its text order is no longer that of numbers.
constexpr std::uint64_t kPaddedSizes = 1'000'000'000'000;

// The upper-case cells of one column, one behind the other.
class UpperCells {
  public:
    UpperCells(const ResultList& rows, Column column) {
        starts_.reserve(rows.Count() + 1);
        starts_.push_back(0);
        for (std::size_t i = 0; i < rows.Count(); ++i) {
            if (column == kName) {
                text::AppendUpper(text_, rows.At(i).name);
            } else {
                text::AppendUpper(text_, rows.Cell(i, column));
            }
            starts_.push_back(text_.size());
        }
    }
    std::string_view operator[](std::size_t row) const {
        return std::string_view(text_).substr(starts_[row], starts_[row + 1] - starts_[row]);
    }

  private:
    std::string text_;
    std::vector<std::size_t> starts_;
};

// The first eight bytes as a number that orders like them.
std::uint64_t Prefix(std::string_view text) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text.data(), std::min(text.size(), sizeof bytes));
    if constexpr (std::endian::native == std::endian::little) bytes = __builtin_bswap64(bytes);
    return bytes;
}

struct SortItem {
    std::uint64_t key;
    std::uint32_t row;
};

template <class Order>
std::vector<std::uint32_t> Sorted(std::vector<SortItem> items, Order order) {
    std::ranges::sort(items, order);
    std::vector<std::uint32_t> result;
    result.reserve(items.size());
    for (const SortItem& item : items) {
        result.push_back(item.row);
    }
    return result;
}

// For columns whose text order is the order of a number.
std::vector<std::uint32_t> OrderByNumber(std::vector<SortItem> items, SortDirection direction) {
    const bool descending = direction == SortDirection::kDescending;
    return Sorted(std::move(items), [descending](const SortItem& a, const SortItem& b) {
        if (a.key != b.key) return (a.key < b.key) != descending;
        return a.row < b.row;
    });
}

int CompareExact(const ResultList& rows, Column column, std::size_t a, std::size_t b) {
    if (column == kName) return rows.At(a).name.compare(rows.At(b).name);
    return rows.Cell(a, column).compare(rows.Cell(b, column));
}

std::vector<std::uint32_t> OrderByText(const ResultList& rows, Column column,
                                       SortDirection direction, Ties ties) {
    const UpperCells cells(rows, column);
    std::vector<SortItem> items;
    items.reserve(rows.Count());
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        items.push_back({Prefix(cells[i]), static_cast<std::uint32_t>(i)});
    }
    const bool descending = direction == SortDirection::kDescending;
    return Sorted(std::move(items), [&](const SortItem& a, const SortItem& b) {
        if (a.key != b.key) return (a.key < b.key) != descending;
        if (const int order = cells[a.row].compare(cells[b.row]); order != 0) {
            return (order < 0) != descending;
        }
        const int exact = ties == Ties::kByExactText ? CompareExact(rows, column, a.row, b.row) : 0;
        return exact != 0 ? (exact < 0) != descending : a.row < b.row;
    });
}

// An empty cell comes first, as an empty text does.
bool NumberKeys(const ResultList& rows, Column column, std::vector<SortItem>& items) {
    if (column != kSize && column != kDate) return false;
    items.reserve(rows.Count());
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        const ResultRow& row = rows.At(i);
        std::uint64_t key = 0;
        if (column == kSize) {
            if (row.size >= kPaddedSizes) return false;
            key = row.isFolder ? 0 : row.size + 1;
        } else if (row.date != kNoDate) {
            key = static_cast<std::uint64_t>(row.date) ^ (std::uint64_t{1} << 63);
        }
        items.push_back({key, static_cast<std::uint32_t>(i)});
    }
    return true;
}

void ShowGroups(Session& session, std::int64_t groups) {
    session.frmSearch.lblGroups.Caption = std::to_string(groups);
}

void Group(Session& session, Column column) {
    auto& form = session.frmSearch;
    if (form.chkFastSort.Value == 1) return;
    form.lblStatus.Caption = "Grouping....";
    session.Repaint();
    form.lstMain.Sorted = false;
    ShowGroups(session, GrouplstMain(*session.rows, column));
    BuildFileArray(session);
}

// What both sort commands do before and after the sort itself.
template <class Sort>
void RunSort(Session& session, std::string_view logText, Column groupColumn, Sort sort) {
    auto& form = session.frmSearch;
    form.lblStatus.Caption =
        session.rows->Count() >= kShowProgressFrom ? "Removing Spacers..." : "Sorting";
    session.Repaint();
    session::LogTimed(session, logText);
    RemoveSpacers(*session.rows);
    form.lblStatus.Caption = "Sorting...";
    session.Repaint();
    sort();
    form.lstMain.Sorted = true;
    if (form.chkFastSort.Value == 1) ShowGroups(session, 1);
    Group(session, groupColumn);
    form.lblStatus.Caption = "";
    session.Repaint();
}

} // namespace

void SortRows(ResultList& rows, Column key, SortDirection direction, Ties ties) {
    std::vector<SortItem> items;
    rows.Reorder(NumberKeys(rows, key, items) ? OrderByNumber(std::move(items), direction)
                                              : OrderByText(rows, key, direction, ties));
}

void RemoveSpacers(ResultList& rows) {
    rows.RemoveSpacers();
}

std::int64_t GrouplstMain(ResultList& rows, Column column) {
    const UpperCells cells(rows, column);
    std::vector<std::uint32_t> groupStarts;
    for (std::size_t i = 1; i < rows.Count(); ++i) {
        if (cells[i] != cells[i - 1]) groupStarts.push_back(static_cast<std::uint32_t>(i));
    }
    rows.InsertSpacers(groupStarts);
    return static_cast<std::int64_t>(groupStarts.size()) + 1;
}

void ArrangeFoundRows(Session& session) {
    const auto& list = session.frmSearch.lstMain;
    const auto column = static_cast<Column>(list.SortKey.Get());
    // How the search ended is still to be read when the rows stand.
    const std::string status = session.frmSearch.lblStatus.Caption;
    SortRows(*session.rows, column, list.SortOrder);
    Group(session, column);
    session.frmSearch.lblStatus.Caption = status;
}

void lstMain_ColumnClick(Session& session, Column column) {
    auto& list = session.frmSearch.lstMain;
    if (session.state.blnPlayListMode || session.state.blnSearching) return;
    const std::string header(kColumns[static_cast<std::size_t>(column)].header);
    RunSort(session, " User selected to sort by column - " + header, column, [&] {
        if (list.SortKey == column) {
            list.SortOrder = list.SortOrder == SortDirection::kAscending
                                 ? SortDirection::kDescending
                                 : SortDirection::kAscending;
        } else {
            list.SortKey = int{column};
            list.SortOrder = SortDirection::kAscending;
        }
        SortRows(*session.rows, column, list.SortOrder);
    });
}

void cmdDoVersionSort_Click(Session& session) {
    auto& list = session.frmSearch.lstMain;
    RunSort(session, " User selected to do version sort.", kName, [&] {
        SortRows(*session.rows, kVersion, SortDirection::kDescending);
        list.SortKey = int{kName};
        list.SortOrder = SortDirection::kAscending;
        SortRows(*session.rows, kName, SortDirection::kAscending, Ties::kAsTheyStood);
    });
}

} // namespace tarvix::results
