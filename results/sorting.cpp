#include "results/sorting.h"

#include "results/key_order.h"
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
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::results {

namespace {

using fields::SortDirection;
using session::Session;

// From here on the Size cell runs out of digits, and its text order is no longer that of numbers.
constexpr std::uint64_t kPaddedSizes = 1'000'000'000'000;

CellTexts UpperCells(const ResultList& rows, Column column) {
    CellTexts cells(rows.Count());
    rows.ForEachCell(column, [&](std::string_view cell) { cells.AddUpper(cell); });
    return cells;
}

// What `of` gives for each row, in the order of the list. It is asked in the order in which the
// rows lie in memory: any other waits for most of them.
template <class Of>
auto OfRows(const ResultList& rows, Of of) {
    using Value = decltype(of(rows.At(0)));
    std::vector<Value> asTheyLie;
    asTheyLie.reserve(rows.Count());
    for (const ResultRow& row : rows.Added())
        asTheyLie.push_back(of(row));
    if (rows.StandAsAdded()) return asTheyLie;
    std::vector<Value> asListed;
    asListed.reserve(rows.Count());
    for (std::size_t i = 0; i < rows.Count(); ++i)
        asListed.push_back(asTheyLie[rows.PlaceOf(i)]);
    return asListed;
}

// The cells of a column, kept here unless the list has them anyway.
class ExactCells {
  public:
    ExactCells(const ResultList& rows, Column column) : made_(0) {
        if (column == kName) {
            cells_ = OfRows(rows, [](const ResultRow& row) { return row.name; });
            return;
        }
        cells_.reserve(rows.Count());
        rows.ForEachCell(column, [this](std::string_view cell) { made_.Add(cell); });
        for (std::size_t i = 0; i < rows.Count(); ++i)
            cells_.push_back(made_[i]);
    }
    std::span<const std::string_view> All() const { return cells_; }

  private:
    CellTexts made_;
    std::vector<std::string_view> cells_;
};

// The rows of a column whose cell is their folder's; nothing where a row shows it otherwise.
std::optional<RowOrder> OrderByFolder(const ResultList& rows, SortDirection direction) {
    const auto isListed = [](const ResultRow& row) { return row.Has(kListed); };
    if (std::ranges::any_of(rows.Added(), isListed)) return std::nullopt;
    std::vector<std::string_view> texts(rows.FolderCount());
    const auto classes = OfRows(rows, [&](const ResultRow& row) {
        texts[row.folder->number] = row.folder->Shown();
        return row.folder->number;
    });
    return OrderByClasses(texts, classes, direction);
}

RowOrder OrderByText(const ResultList& rows, Column column, SortDirection direction, Ties ties) {
    if (ties == Ties::kAsTheyStood) return OrderByTexts(UpperCells(rows, column), {}, direction);
    if (column == kPath) {
        if (auto sorted = OrderByFolder(rows, direction)) return std::move(*sorted);
    }
    const ExactCells exact(rows, column);
    std::vector<std::string_view> texts;
    std::vector<std::uint32_t> classes;
    const std::size_t few = std::max<std::size_t>(64, rows.Count() / 8);
    if (FindDifferentTexts(exact.All(), few, texts, classes)) {
        return OrderByClasses(texts, classes, direction);
    }
    std::size_t bytes = 0;
    for (const std::string_view cell : exact.All())
        bytes += cell.size();
    CellTexts upper(rows.Count(), bytes);
    for (const std::string_view cell : exact.All())
        upper.AddUpper(cell);
    return OrderByTexts(upper, exact.All(), direction);
}

// For columns whose text order is the order of a number. An empty cell comes first, as an empty
// text does.
bool NumberKeys(const ResultList& rows, Column column, std::vector<RowKey>& items) {
    if (column != kSize && column != kDate) return false;
    bool hasPadded = false;
    const auto keys = OfRows(rows, [&](const ResultRow& row) -> std::uint64_t {
        hasPadded |= row.size >= kPaddedSizes;
        if (column == kSize) return row.isFolder ? 0 : row.size + 1;
        const std::uint64_t sign = std::uint64_t{1} << 63;
        return row.date == kNoDate ? 0 : static_cast<std::uint64_t>(row.date) ^ sign;
    });
    if (column == kSize && hasPadded) return false;
    items.reserve(keys.size());
    for (const std::uint64_t key : keys)
        items.push_back({key, static_cast<std::uint32_t>(items.size())});
    return true;
}

RowOrder OrderByNumber(std::vector<RowKey> items, SortDirection direction) {
    if (direction == SortDirection::kDescending) {
        for (RowKey& item : items)
            item.key = ~item.key;
    }
    SortByKey(items);
    RowOrder sorted;
    sorted.order.reserve(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool begins = i > 0 && items[i].key != items[i - 1].key;
        if (begins) sorted.groups.push_back(static_cast<std::uint32_t>(i));
        sorted.order.push_back(items[i].row);
    }
    return sorted;
}

RowOrder OrderBy(const ResultList& rows, Column column, SortDirection direction, Ties ties) {
    std::vector<RowKey> items;
    return NumberKeys(rows, column, items) ? OrderByNumber(std::move(items), direction)
                                           : OrderByText(rows, column, direction, ties);
}

// The rows behind the first whose cell differs from that of the row before.
std::vector<std::uint32_t> GroupStarts(const ResultList& rows, Column column) {
    std::vector<std::uint32_t> starts;
    if (std::vector<RowKey> items; NumberKeys(rows, column, items)) {
        for (std::size_t i = 1; i < items.size(); ++i) {
            if (items[i].key != items[i - 1].key) starts.push_back(items[i].row);
        }
        return starts;
    }
    std::string before;
    std::uint32_t row = 0;
    rows.ForEachCell(column, [&](std::string_view cell) {
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
    std::vector<RowKey> items;
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
        std::ranges::stable_sort(items, std::ranges::greater{}, &RowKey::key);
        std::ranges::transform(items, std::back_inserter(order), &RowKey::row);
    }
    rows.Reorder(order);
}

std::int64_t CountOf(const ResultList& rows) {
    return static_cast<std::int64_t>(rows.Count());
}

bool Groups(const Session& session) {
    return session.frmSearch.chkFastSort.Value != 1;
}

void TellGrouping(Session& session) {
    if (!Groups(session)) return;
    session.frmSearch.lblStatus.Caption = "Grouping....";
    session.Repaint();
}

void NoteGrouped(Session& session, std::int64_t groups) {
    session.frmSearch.lstMain.Sorted = false;
    ShowGroups(session, groups);
    BuildFileArray(session);
}

void Regroup(Session& session, Column column) {
    if (Groups(session)) NoteGrouped(session, GrouplstMain(*session.rows, column));
}

// Puts the rows, which have no spacers, in the order of the list's column. Gives where its groups
// begin.
std::vector<std::uint32_t> SortByColumn(Session& session) {
    const auto& list = session.frmSearch.lstMain;
    RowOrder sorted = OrderBy(*session.rows, static_cast<Column>(list.SortKey.Get()),
                              list.SortOrder, Ties::kByExactText);
    session.rows->Reorder(sorted.order);
    return std::move(sorted.groups);
}

void GroupAt(Session& session, const std::vector<std::uint32_t>& starts) {
    if (!Groups(session)) return;
    session.rows->InsertSpacers(starts);
    NoteGrouped(session, static_cast<std::int64_t>(starts.size()) + 1);
}

// What both sort commands do before and after the sort itself.
template <class Sort>
void RunSort(Session& session, std::string_view logText, Sort sort) {
    auto& form = session.frmSearch;
    const std::int64_t rows = CountOf(*session.rows);
    form.lblStatus.Caption = "Sorting";
    session.Repaint();
    if (Groups(session) && rows - session.state.lngGroups >= kProgressFromRows) {
        ShowProgress(session, "Show");
        StepProgress(session, "Removing Spacers...", 0, rows);
    }
    session::LogTimed(session, logText);
    RemoveSpacers(*session.rows);
    StepProgress(session, "Sorting...", CountOf(*session.rows) / 2, rows);
    form.lstMain.Sorted = true;
    if (!Groups(session)) ShowGroups(session, 1);
    sort();
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
    rows.Reorder(OrderBy(rows, key, direction, ties).order);
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
    // How the search ended is still to be read when the rows stand.
    const std::string status = session.frmSearch.lblStatus.Caption;
    // Told before the rows change, so that a window lays them out but once.
    TellGrouping(session);
    RemoveSpacers(*session.rows);
    GroupAt(session, SortByColumn(session));
    session.frmSearch.lblStatus.Caption = status;
}

void RearrangeRows(Session& session) {
    if (session.state.blnPlayListMode || session.rows->Count() == 0) return;
    if (!Groups(session)) ShowGroups(session, 1);
    ArrangeFoundRows(session);
}

void RegroupRows(Session& session) {
    if (session.state.blnPlayListMode || session.rows->Count() == 0 || !Groups(session)) return;
    const std::string status = session.frmSearch.lblStatus.Caption;
    TellGrouping(session);
    RemoveSpacers(*session.rows);
    Regroup(session, static_cast<Column>(session.frmSearch.lstMain.SortKey.Get()));
    session.frmSearch.lblStatus.Caption = status;
}

void lstMain_ColumnClick(Session& session, Column column) {
    auto& list = session.frmSearch.lstMain;
    if (session.state.blnPlayListMode || session.state.blnSearching) return;
    const std::string header(kColumns[static_cast<std::size_t>(column)].header);
    RunSort(session, fmt::format(" User selected to sort by column - {}", header), [&] {
        if (list.SortKey == column) {
            list.SortOrder = list.SortOrder == SortDirection::kAscending
                                 ? SortDirection::kDescending
                                 : SortDirection::kAscending;
        } else {
            list.SortKey = int{column};
            list.SortOrder = SortDirection::kAscending;
        }
        const std::vector<std::uint32_t> starts = SortByColumn(session);
        TellGrouping(session);
        GroupAt(session, starts);
    });
}

void cmdDoVersionSort_Click(Session& session) {
    auto& list = session.frmSearch.lstMain;
    RunSort(session, " User selected to do version sort.", [&] {
        list.SortKey = int{kName};
        list.SortOrder = SortDirection::kAscending;
        SortRows(*session.rows, kName, SortDirection::kAscending, Ties::kAsTheyStood);
        HighestVersionsFirst(*session.rows);
        TellGrouping(session);
        Regroup(session, kName);
    });
}

} // namespace tarvix::results
