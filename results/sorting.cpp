#include "results/sorting.h"

#include "results/progress.h"
#include "results/result_list.h"
#include "results/selection.h"
#include "results/text_order.h"
#include "session/session.h"
#include "text/case.h"

#include <fmt/core.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <numeric>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvix::results {

namespace {

using fields::SortDirection;
using session::Session;

// From here on the Size cell runs out of digits, and its text order is no longer that of numbers.
constexpr std::uint64_t kPaddedSizes = 1'000'000'000'000;

template <class Take>
void ForEachCell(const ResultList& rows, Column column, Take take) {
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        if (column == kName) {
            take(rows.At(i).name);
        } else {
            take(rows.Cell(i, column));
        }
    }
}

CellTexts UpperCells(const ResultList& rows, Column column) {
    CellTexts cells(rows.Count());
    ForEachCell(rows, column, [&](std::string_view cell) { cells.AddUpper(cell); });
    return cells;
}

struct SortItem {
    std::uint64_t key;
    std::uint32_t row;
};

template <class Order>
std::vector<std::uint32_t> Sorted(std::vector<SortItem> items, Order order) {
    // A search lists much of what it finds in order.
    if (!std::ranges::is_sorted(items, order)) std::ranges::sort(items, order);
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

// A column with few different texts: those are sorted, and the rows follow by counting.
class FewTexts {
  public:
    // False when there are too many for this way.
    bool Read(const CellTexts& exact, std::size_t rows) {
        const std::size_t most = std::max<std::size_t>(64, rows / 16);
        ids_.reserve(rows);
        std::unordered_map<std::string_view, std::uint32_t> known;
        for (std::size_t i = 0; i < rows; ++i) {
            const auto next = static_cast<std::uint32_t>(texts_.size());
            const auto [entry, isNew] = known.try_emplace(exact[i], next);
            if (isNew) texts_.push_back(exact[i]);
            if (texts_.size() > most) return false;
            ids_.push_back(entry->second);
        }
        return true;
    }
    std::vector<std::uint32_t> Order(SortDirection direction) const {
        const auto ranks = Ranks(direction);
        std::vector<std::uint32_t> starts(texts_.size() + 1);
        for (const std::uint32_t id : ids_) {
            ++starts[ranks[id] + 1];
        }
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        std::vector<std::uint32_t> order(ids_.size());
        for (std::uint32_t row = 0; row < ids_.size(); ++row) {
            order[starts[ranks[ids_[row]]]++] = row;
        }
        return order;
    }

  private:
    std::vector<std::uint32_t> Ranks(SortDirection direction) const {
        std::vector<std::uint32_t> sorted(texts_.size());
        std::iota(sorted.begin(), sorted.end(), 0U);
        std::ranges::sort(sorted, [&](std::uint32_t a, std::uint32_t b) {
            const int order = text::CompareNoCase(texts_[a], texts_[b]);
            return order != 0 ? order < 0 : texts_[a] < texts_[b];
        });
        if (direction == SortDirection::kDescending) std::ranges::reverse(sorted);
        std::vector<std::uint32_t> ranks(texts_.size());
        for (std::uint32_t rank = 0; rank < sorted.size(); ++rank) {
            ranks[sorted[rank]] = rank;
        }
        return ranks;
    }

    std::vector<std::string_view> texts_;
    std::vector<std::uint32_t> ids_; // of each row's text
};

std::vector<std::uint32_t> OrderByText(const ResultList& rows, Column column,
                                       SortDirection direction, Ties ties) {
    if (ties == Ties::kAsTheyStood) {
        return OrderByTexts(UpperCells(rows, column), nullptr, direction);
    }
    CellTexts exact(rows.Count());
    ForEachCell(rows, column, [&](std::string_view cell) { exact.Add(cell); });
    if (FewTexts few; few.Read(exact, rows.Count())) return few.Order(direction);
    CellTexts upper(rows.Count());
    for (std::size_t i = 0; i < rows.Count(); ++i) {
        upper.AddUpper(exact[i]);
    }
    return OrderByTexts(upper, upper == exact ? nullptr : &exact, direction);
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

// The rows behind the first whose cell differs from that of the row before.
std::vector<std::uint32_t> GroupStarts(const ResultList& rows, Column column) {
    std::vector<std::uint32_t> starts;
    if (std::vector<SortItem> items; NumberKeys(rows, column, items)) {
        for (std::size_t i = 1; i < items.size(); ++i) {
            if (items[i].key != items[i - 1].key) starts.push_back(items[i].row);
        }
        return starts;
    }
    std::string before;
    std::uint32_t row = 0;
    ForEachCell(rows, column, [&](std::string_view cell) {
        if (row > 0 && !text::EqualNoCase(cell, before)) starts.push_back(row);
        before = cell;
        ++row;
    });
    return starts;
}

// Rows stand by name. Only where several share one are their versions read, and compared as
// numbers.
void HighestVersionsFirst(ResultList& rows) {
    const CellTexts names = UpperCells(rows, kName);
    std::vector<SortItem> items;
    std::vector<std::uint32_t> order;
    order.reserve(rows.Count());
    for (std::size_t first = 0, behind = 0; first < rows.Count(); first = behind) {
        while (behind < rows.Count() && names[behind] == names[first]) {
            ++behind;
        }
        items.clear();
        for (std::size_t i = first; i < behind; ++i) {
            const std::uint64_t version = behind - first > 1 ? rows.VersionKey(i) : 0;
            items.push_back({version, static_cast<std::uint32_t>(i)});
        }
        std::ranges::stable_sort(items, std::ranges::greater{}, &SortItem::key);
        std::ranges::transform(items, std::back_inserter(order), &SortItem::row);
    }
    rows.Reorder(order);
}

std::int64_t CountOf(const ResultList& rows) {
    return static_cast<std::int64_t>(rows.Count());
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
    const std::int64_t rows = CountOf(*session.rows);
    form.lblStatus.Caption = "Sorting";
    session.Repaint();
    if (form.chkFastSort.Value != 1 && rows - session.state.lngGroups >= kProgressFromRows) {
        ShowProgress(session, "Show");
        StepProgress(session, "Removing Spacers...", 0, rows);
    }
    session::LogTimed(session, logText);
    RemoveSpacers(*session.rows);
    StepProgress(session, "Sorting...", CountOf(*session.rows) / 2, rows);
    sort();
    form.lstMain.Sorted = true;
    if (form.chkFastSort.Value == 1) ShowGroups(session, 1);
    Group(session, groupColumn);
    ShowProgress(session, "Hide");
    form.lblStatus.Caption = "";
    session.Repaint();
}

} // namespace

void ShowGroups(Session& session, std::int64_t groups) {
    session.state.lngGroups = groups;
    session.frmSearch.lblGroups.Caption = std::to_string(groups);
}

void SortRows(ResultList& rows, Column key, SortDirection direction, Ties ties) {
    std::vector<SortItem> items;
    rows.Reorder(NumberKeys(rows, key, items) ? OrderByNumber(std::move(items), direction)
                                              : OrderByText(rows, key, direction, ties));
}

void RemoveSpacers(ResultList& rows) {
    rows.RemoveSpacers();
}

std::int64_t GrouplstMain(ResultList& rows, Column column) {
    const std::vector<std::uint32_t> groupStarts = GroupStarts(rows, column);
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

void RearrangeRows(Session& session) {
    if (session.state.blnPlayListMode || session.rows->Count() == 0) return;
    RemoveSpacers(*session.rows);
    ShowGroups(session, 1);
    ArrangeFoundRows(session);
}

void RegroupRows(Session& session) {
    if (session.state.blnPlayListMode || session.rows->Count() == 0) return;
    if (session.frmSearch.chkFastSort.Value == 1) return;
    const std::string status = session.frmSearch.lblStatus.Caption;
    RemoveSpacers(*session.rows);
    Group(session, static_cast<Column>(session.frmSearch.lstMain.SortKey.Get()));
    session.frmSearch.lblStatus.Caption = status;
}

void lstMain_ColumnClick(Session& session, Column column) {
    auto& list = session.frmSearch.lstMain;
    if (session.state.blnPlayListMode || session.state.blnSearching) return;
    const std::string header(kColumns[static_cast<std::size_t>(column)].header);
    RunSort(session, fmt::format(" User selected to sort by column - {}", header), column, [&] {
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
        list.SortKey = int{kName};
        list.SortOrder = SortDirection::kAscending;
        SortRows(*session.rows, kName, SortDirection::kAscending, Ties::kAsTheyStood);
        HighestVersionsFirst(*session.rows);
    });
}

} // namespace tarvix::results
