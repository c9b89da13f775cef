#include "results/list_looks.h"

#include "platform/object_facts.h"
#include "results/shown_cells.h"
#include "session/session.h"
#include "text/cut_text.h"
#include "text/format.h"
#include "text/readable_size.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::results {

namespace {

constexpr std::size_t kDriveLength = 3; // of "C:\"

bool IsRow(const ResultList& rows, std::size_t index) {
    return index < rows.Count() && !rows.IsSpacer(index);
}

// Empty where it is not known, or a whole drive.
std::string_view LocationOf(const RowFolder& folder) {
    if (folder.searchPrefix == 0) return {};
    const auto location = std::string_view(folder.longPath).substr(0, folder.searchPrefix - 1);
    return location.size() > kDriveLength ? location : std::string_view();
}

bool HasSize(const ResultRow& row) {
    return !row.IsSpacer() && !row.isFolder && !row.Has(kNotRead);
}

RowSign SignOf(RowFate fate) {
    if (fate == RowFate::kFailed) return RowSign::kFailed;
    return fate == RowFate::kMoved ? RowSign::kMoved : RowSign::kRenamed;
}

} // namespace

bool DividesGroups(const ResultList& rows, std::size_t spacer) {
    const bool above = spacer > 1 && IsRow(rows, spacer - 1) && IsRow(rows, spacer - 2);
    return above || (IsRow(rows, spacer + 1) && IsRow(rows, spacer + 2));
}

RowSign SignOf(const ResultRow& row) {
    if (row.IsSpacer()) return RowSign::kNone;
    if (row.Has(kGone)) return RowSign::kGone;
    if (row.Has(kCut)) return RowSign::kCut;
    if (row.Fate() != RowFate::kNone) return SignOf(row.Fate());
    if (row.Has(kReplacement)) return RowSign::kReplacement;
    if (row.Has(kEntry)) return RowSign::kEntry;
    if ((row.attributes & platform::kAlias) != 0) return RowSign::kLink;
    return row.isFolder ? RowSign::kFolder : RowSign::kNone;
}

std::string_view WordsOf(RowSign sign) {
    switch (sign) {
    case RowSign::kGone:
        return "moved to the trash";
    case RowSign::kCut:
        return "cut";
    case RowSign::kFailed:
        return "failed in the last action";
    case RowSign::kMoved:
        return "moved";
    case RowSign::kRenamed:
        return "renamed";
    case RowSign::kReplacement:
        return "replacement, gets the Year-Rank";
    case RowSign::kEntry:
        return "entry of the playlist";
    case RowSign::kLink:
        return "link";
    case RowSign::kFolder:
        return "folder";
    case RowSign::kNone:
        break;
    }
    return {};
}

int LaterPattern(const ResultRow& row) {
    const bool isFound = !row.IsSpacer() && !row.Has(kListed);
    return isFound && row.searchForIndex > 1 ? row.searchForIndex : 0;
}

std::string CommonLocation(const ResultList& rows, std::size_t first, std::string folder) {
    const RowFolder* last = nullptr;
    bool isNew = first == 0;
    const auto take = [&](const ResultRow& row) {
        if (row.IsSpacer() || row.folder == last) return;
        last = row.folder;
        const std::string_view location = LocationOf(*last);
        if (isNew) folder = location;
        isNew = false;
        if (folder != location) folder = std::string(text::CommonFolder(folder, location));
    };
    if (isNew) { // in any order, and those of one folder were added together
        std::ranges::for_each(rows.Added(), take);
        return folder;
    }
    for (std::size_t i = first; i < rows.Count() && !folder.empty(); ++i)
        take(rows.At(i));
    return folder;
}

std::string PathFrom(const session::Session& session, std::size_t row, std::string_view folder) {
    const std::string path = ShownCell(session, row, kPath);
    return std::string(text::PathBelow(path, folder.empty() ? "" : session.Shown(folder)));
}

std::string ReadableSizeCell(const ResultList& rows, std::size_t row) {
    const ResultRow& shown = rows.At(row);
    return HasSize(shown) ? text::ReadableSize(shown.size) : std::string();
}

std::string ExactSize(const ResultList& rows, std::size_t row) {
    const ResultRow& shown = rows.At(row);
    if (!HasSize(shown)) return {};
    return fmt::format("{} {}", text::Format(static_cast<std::int64_t>(shown.size), "#,##0"),
                       shown.size == 1 ? "byte" : "bytes");
}

} // namespace tarvix::results
