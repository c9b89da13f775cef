#include "platform/object_facts.h"
#include "results/quick_cells.h"
#include "results/result_list.h"
#include "results/row_details.h"
#include "results/text_order.h"
#include "results/year_rank.h"
#include "session/paths/short_path.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/dates.h"
#include "text/format.h"
#include "text/like.h"
#include "text/paths.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvix::results {

namespace {

constexpr std::size_t kTipFromLength = 79; // characters of a path
constexpr std::uint64_t kLargestShownSize = 999'999'999'999;

// By the index of the string that found a row first; blue leaves the row's own colour.
constexpr fields::Color kReplacementColor = 32768;
constexpr std::array<fields::Color, 11> kSearchColors{
    fields::kBlue, fields::kBlue, 0x000040, 0x404040, 0x00FF00, 0x7F00FF,
    0xFFFF00,      0x000000,      0x7F003F, 0x007F00, 0x003F7F};

} // namespace

std::string ResultList::Cell(std::size_t index, Column column) const {
    std::string cell;
    AppendCell(cell, index, column);
    return cell;
}

void ResultList::AppendCell(std::string& out, std::size_t index, Column column) const {
    const ResultRow& row = At(index);
    if (row.IsSpacer()) return;
    if (row.Has(kListed)) {
        out += ListedCell(index, column);
    } else if (!AppendPlain(out, row, column)) {
        out += WorkedOutCell(index, column);
    }
}

void ResultList::ForEachCell(Column column,
                             const std::function<void(std::string_view cell)>& take) const {
    if (column == kYearRank && details_ != nullptr) return ForEachYearRank(take);
    std::string cell;
    for (std::size_t i = 0; i < Count(); ++i) {
        if (column == kName) {
            take(At(i).name);
            continue;
        }
        cell.clear();
        AppendCell(cell, i, column);
        take(cell);
    }
}

void ResultList::ForEachYearRank(const std::function<void(std::string_view cell)>& take) const {
    YearRanks ranks(details_->MaxYear(), folders_.size());
    CellTexts cells(rows_.Size()); // in the order in which rows lie in memory
    for (const ResultRow& row : rows_.From(kSpacer)) {
        const bool isListed = row.Has(kListed);
        const bool isEmpty = row.IsSpacer() || (row.isFolder && !isListed);
        const auto forms = isListed ? YearRankForms::kPlaylist : YearRankForms::kSearch;
        cells.Add(isEmpty ? std::string_view()
                          : ranks.Of(row.name, row.folder->number, row.folder->longPath, forms));
    }
    for (const std::uint32_t line : lines_)
        take(cells[line]);
}

// What nearly every printed row asks for, with nothing made on the way; false for other cells.
bool ResultList::AppendPlain(std::string& out, const ResultRow& row, Column column) const {
    switch (column) {
    case kName:
        out += row.name;
        return true;
    case kSize:
        if (!row.isFolder && !row.Has(kNotRead)) AppendSize(out, row.size);
        return true;
    case kDate:
        if (row.date != kNoDate) AppendDate(out, row.date);
        return true;
    case kExt:
        if (!row.isFolder) AppendExtension(out, row.name);
        return true;
    case kPath:
        out += row.folder->Shown();
        return true;
    case kAttributes:
        if (!row.Has(kNotRead)) AppendAttributes(out, row.attributes);
        return true;
    case kSearchForEntry:
        out += SearchEntry(row);
        return true;
    case kPathLevels:
        AppendPadded(out, RowPathLevels(*row.folder, row.isFolder), 2);
        return true;
    case kPathNameLength: {
        const std::size_t length = RowPathLength(*row.folder, row.name, row.isFolder);
        AppendPadded(out, length, 3);
        if (NeedsShortName(row, length)) out += "++?";
        return true;
    }
    case kPathNameNoSrch: {
        const std::size_t begin = out.size();
        AppendRowPath(out, *row.folder, row.name, row.isFolder);
        out.erase(begin, std::min<std::size_t>(row.folder->searchPrefix, out.size() - begin));
        return true;
    }
    default:
        return false;
    }
}

std::string ResultList::WorkedOutCell(std::size_t index, Column column) const {
    const ResultRow& row = At(index);
    switch (column) {
    case kPathName:
        return PathCell(index);
    case kFilesInFolder:
        return row.isFolder ? text::Format(row.folder->filesInFolder, "00,00#") : std::string{};
    case kFoldersInFolder:
        return row.isFolder ? text::Format(row.folder->foldersInFolder, "00,00#") : std::string{};
    case kShortPath:
        return session::ShortFormOf(FullPath(index));
    case kSearchFolderIndex:
        return std::to_string(row.folder->searchFolderIndex);
    case kType:
    case kVersion:
    case kExeType:
    case kOs:
    case kYearRank:
    case kTargetPath:
    case kTargetArguments:
    case kWorkingDir:
    case kHotKey:
    case kWindowStyle:
    case kDescription:
    case kIconPath:
        return DetailCell(index, column);
    default:
        return {};
    }
}

// A row of a playlist shows what its file is, and nothing that a search would have to tell.
std::string ResultList::ListedCell(std::size_t index, Column column) const {
    const ResultRow& row = At(index);
    switch (column) {
    case kName:
        return std::string(row.name);
    case kSize:
        if (row.isFolder || row.Has(kNotRead)) return {};
        return text::Format(static_cast<std::int64_t>(row.size), "0,000,000,000");
    case kDate:
        if (row.date == kNoDate) return {};
        return text::FormatDate(text::FromSeconds(row.date), "yyyy/mm/dd hh:mm:ss");
    case kPath:
        return text::ParentFolder(FullPath(index));
    case kPathName:
        return FullPath(index);
    case kYearRank:
        return details_ ? details_->Cell(row, column, FullPath(index)) : std::string{};
    case kShortPath:
        return session::ShortFormOf(FullPath(index));
    default:
        return {};
    }
}

std::string ResultList::PathCell(std::size_t index) const {
    return showsLongPaths_ ? FullPath(index) : OpenablePath(FullPath(index));
}

bool ResultList::NeedsShortName(const ResultRow& row, std::size_t pathLength) const {
    static const text::LikePattern shortName("??????~?.???");
    if (showsLongPaths_ || row.name.find('~') == row.name.npos) return false;
    if (!shortName.Matches(row.name)) return false;
    const std::string& folder = row.folder->longPath;
    if (pathLength >= 247) return true;
    return folder.find('~') != folder.npos && text::Length(folder) >= 125;
}

std::string ResultList::DetailCell(std::size_t index, Column column) const {
    const ResultRow& row = At(index);
    if (row.isFolder) return column == kType ? std::string(kFolderType) : std::string{};
    return details_ ? details_->Cell(row, column, FullPath(index)) : std::string{};
}

std::string ResultList::CellTip(std::size_t index, Column column) const {
    if (IsSpacer(index)) return {};
    std::string path = PathCell(index);
    return text::Length(path) > kTipFromLength ? path : Cell(index, column);
}

fields::Color ResultList::CellColor(std::size_t index, Column column) const {
    const ResultRow& row = At(index);
    if (row.IsSpacer()) return fields::kBlack;
    if (row.Has(kListed)) {
        return row.Has(kReplacement) ? kReplacementColor
               : row.Has(kEntry)     ? fields::kBlue
                                     : fields::kBlack;
    }
    if (column == kName || column == kSearchForEntry) {
        const fields::Color color = PatternColor(row.searchForIndex);
        if (color != fields::kBlue) return color;
    }
    if (row.isFolder) return fields::kRed;
    if (column == kSize && row.size > kLargestShownSize) return fields::kRed;
    if (column == kPathNameLength && NeedsShortName(row, text::Length(FullPath(index)))) {
        return fields::kRed;
    }
    return fields::kBlue;
}

fields::Color PatternColor(int number) {
    const auto index = static_cast<std::size_t>(number);
    return index < kSearchColors.size() ? kSearchColors[index] : fields::kBlue;
}

std::string BuildAttributeString(std::uint32_t bits) {
    std::string letters;
    AppendAttributes(letters, bits);
    return letters;
}

} // namespace tarvix::results
