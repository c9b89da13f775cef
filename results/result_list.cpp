#include "results/result_list.h"

#include "platform/object_facts.h"
#include "results/link_cells.h"
#include "results/row_details.h"
#include "session/paths/short_path.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/dates.h"
#include "text/format.h"
#include "text/like.h"
#include "text/paths.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace tarvix::results {

namespace {

constexpr std::size_t kBlockSize = 64 * 1024;
constexpr std::size_t kTipFromLength = 79; // characters of a path
constexpr std::uint64_t kLargestShownSize = 999'999'999'999;

constexpr std::array<std::pair<std::uint32_t, char>, 10> kAttributeLetters{
    {{platform::kReadOnly, 'r'},
     {platform::kHidden, 'h'},
     {platform::kSystem, 's'},
     {platform::kArchive, 'a'},
     {platform::kSpecial, '6'},
     {platform::kBit128, '1'},
     {platform::kBit256, '2'},
     {platform::kSparse, '5'},
     {platform::kAlias, 'A'},
     {platform::kCompressed, 'C'}}};

// By the index of the string that found a row first; 0xFFFFFFFF leaves the row's own colour.
constexpr fields::Color kReplacementColor = 32768;
constexpr fields::Color kOwnColor = 0xFFFFFFFF;
constexpr std::array<fields::Color, 11> kSearchColors{kOwnColor, kOwnColor, 0x000040, 0x404040,
                                                      0x00FF00,  0x7F00FF,  0xFFFF00, 0x000000,
                                                      0x7F003F,  0x007F00,  0x003F7F};

std::size_t HashPath(std::string_view path) {
    return std::hash<std::string_view>{}(path);
}

// The extension cell: in lower case, if it has fewer than 6 characters.
std::string ExtensionCell(const ResultRow& row) {
    const std::string_view extension = text::GetExtension(row.name);
    if (row.isFolder || text::Length(extension) >= 6) return {};
    return text::Lower(extension);
}

} // namespace

// Rows by the hash of their path; equal hashes are told apart by the path itself.
struct ResultList::PathIndex {
    std::unordered_multimap<std::size_t, std::uint32_t> byHash;
};

ResultList::ResultList() = default;
ResultList::~ResultList() = default;

void ResultList::Clear() {
    rows_.clear();
    folders_.clear();
    nameBlocks_.clear();
    blockLeft_ = 0;
    entries_.clear();
    identities_.Clear();
    index_.reset();
    if (details_) details_->Clear();
    ++generation_;
}

const RowFolder* ResultList::AddFolder(RowFolder folder) {
    folders_.push_back(std::move(folder));
    return &folders_.back();
}

std::string_view ResultList::KeepName(std::string_view name) {
    if (name.empty()) return {};
    if (name.size() > blockLeft_) {
        blockLeft_ = std::max(kBlockSize, name.size());
        nameBlocks_.push_back(std::make_unique_for_overwrite<char[]>(blockLeft_));
    }
    // Blocks are filled from their end, so that one number tells what is free.
    char* const at = nameBlocks_.back().get() + (blockLeft_ - name.size());
    std::memcpy(at, name.data(), name.size());
    blockLeft_ -= name.size();
    return {at, name.size()};
}

const std::string* ResultList::KeepEntry(std::string_view entry) {
    return &*entries_.emplace(entry).first;
}

std::size_t ResultList::Add(ResultRow row, std::string_view searchEntry) {
    row.name = KeepName(row.name);
    row.searchEntry = KeepEntry(searchEntry);
    rows_.push_back(row);
    if (index_ && !row.IsSpacer()) {
        const std::size_t hash = HashPath(FullPath(rows_.size() - 1));
        index_->byHash.emplace(hash, static_cast<std::uint32_t>(rows_.size() - 1));
    }
    return rows_.size() - 1;
}

// A copy that the virtual store keeps was found by its path alone.
platform::Sighting ResultList::SightingOf(const ResultRow& row) const {
    platform::Sighting sighting{.identity = identities_.Unpack(row.identity),
                                .size = row.size,
                                .attributes = row.attributes,
                                .wasEmpty = RowIdentities::WasEmpty(row.identity)};
    const std::uint32_t prefix = row.folder->searchPrefix;
    if (prefix > 0) sighting.location = prefix - 1;
    return sighting;
}

std::size_t ResultList::Find(std::string_view longFolder, std::string_view name, bool isFolder) {
    const std::string wanted =
        isFolder ? std::string(longFolder) : text::JoinPath(longFolder, name);
    if (!index_) {
        index_ = std::make_unique<PathIndex>();
        index_->byHash.reserve(rows_.size() * 2);
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            if (rows_[i].IsSpacer()) continue;
            index_->byHash.emplace(HashPath(FullPath(i)), static_cast<std::uint32_t>(i));
        }
    }
    std::size_t found = Count();
    const auto [first, last] = index_->byHash.equal_range(HashPath(wanted));
    for (auto at = first; at != last; ++at) {
        if (at->second < found && FullPath(at->second) == wanted) found = at->second;
    }
    return found;
}

void ResultList::AddSearchEntry(std::size_t index, std::string_view twoDigits) {
    const std::string& held = *rows_[index].searchEntry;
    for (std::size_t i = 0; i + 2 <= held.size(); i += 2) {
        if (held.compare(i, 2, twoDigits) == 0) return;
    }
    rows_[index].searchEntry = KeepEntry(held + std::string(twoDigits));
}

void ResultList::Reorder(const std::vector<std::uint32_t>& order) {
    std::vector<ResultRow> rows;
    rows.reserve(rows_.size());
    for (const std::uint32_t from : order) {
        rows.push_back(rows_[from]);
    }
    Replace(std::move(rows));
}

void ResultList::RemoveSpacers() {
    std::vector<ResultRow> rows;
    rows.reserve(rows_.size());
    std::ranges::remove_copy_if(rows_, std::back_inserter(rows), &ResultRow::IsSpacer);
    Replace(std::move(rows));
}

void ResultList::InsertSpacers(const std::vector<std::uint32_t>& before) {
    std::vector<ResultRow> rows;
    rows.reserve(rows_.size() + before.size());
    std::size_t taken = 0;
    for (const std::uint32_t at : before) {
        rows.insert(rows.end(), rows_.begin() + static_cast<std::ptrdiff_t>(taken),
                    rows_.begin() + static_cast<std::ptrdiff_t>(at));
        rows.emplace_back();
        taken = at;
    }
    rows.insert(rows.end(), rows_.begin() + static_cast<std::ptrdiff_t>(taken), rows_.end());
    Replace(std::move(rows));
}

void ResultList::Replace(std::vector<ResultRow> rows) {
    rows_ = std::move(rows);
    index_.reset();
    ++generation_;
}

std::string ResultList::FullPath(std::size_t index) const {
    const ResultRow& row = rows_[index];
    if (row.IsSpacer()) return {};
    return JoinRowPath(*row.folder, row.name, row.isFolder);
}

std::string ResultList::Cell(std::size_t index, Column column) const {
    const ResultRow& row = rows_[index];
    if (row.IsSpacer()) return {};
    if (row.Has(kListed)) return ListedCell(index, column);
    switch (column) {
    case kName:
        return std::string(row.name);
    case kSize:
        return row.isFolder ? std::string{}
                            : text::Format(static_cast<std::int64_t>(row.size), "000,000,000,000");
    case kDate:
        if (row.date == kNoDate) return {};
        return text::FormatDate(text::FromSeconds(row.date), "yyyy/mm/dd hh:mm:ss");
    case kExt:
        return ExtensionCell(row);
    case kPath:
        return row.folder->mixedPath.empty() ? row.folder->longPath : row.folder->mixedPath;
    case kPathName:
        return PathCell(index);
    case kAttributes:
        return BuildAttributeString(row.attributes);
    case kPathNameNoSrch: {
        const std::string path = FullPath(index);
        return path.substr(std::min<std::size_t>(row.folder->searchPrefix, path.size()));
    }
    case kPathNameLength: {
        const std::size_t length = text::Length(FullPath(index));
        return text::Format(length, "00#") + (NeedsShortName(row, length) ? "++?" : "");
    }
    case kFilesInFolder:
        return row.isFolder ? text::Format(row.filesInFolder, "00,00#") : std::string{};
    case kFoldersInFolder:
        return row.isFolder ? text::Format(row.foldersInFolder, "00,00#") : std::string{};
    case kPathLevels:
        return text::Format(text::CountPathLevels(FullPath(index)), "0#");
    case kSearchForEntry:
        return *row.searchEntry;
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
    const ResultRow& row = rows_[index];
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
    if (showsLongPaths_ || !shortName.Matches(row.name)) return false;
    const std::string& folder = row.folder->longPath;
    if (pathLength >= 247) return true;
    return folder.find('~') != folder.npos && text::Length(folder) >= 125;
}

std::string ResultList::DetailCell(std::size_t index, Column column) const {
    const ResultRow& row = rows_[index];
    if (row.isFolder) return column == kType ? std::string(kFolderType) : std::string{};
    return details_ ? details_->Cell(row, column, FullPath(index)) : std::string{};
}

LinkCells& ResultList::Links(std::size_t index) {
    return details_->Links(rows_[index], FullPath(index));
}

void ResultList::SetLinks(std::size_t index, LinkCells cells) {
    if (details_) details_->SetLinks(rows_[index], std::move(cells));
}

void ResultList::RenameFolder(const std::string& path, std::string_view name) {
    const std::string before{std::string_view(path)}; // which changes with its record
    const std::string now = text::ParentFolderSlash(before) + std::string(name);
    for (RowFolder& folder : folders_) {
        std::string& listed = folder.longPath;
        const bool isInside = listed.starts_with(before) &&
                              (listed.size() == before.size() || listed[before.size()] == '\\');
        if (!isInside) continue;
        listed.replace(0, before.size(), now);
        folder.mixedPath.clear();
    }
}

void ResultList::Rename(std::size_t index, std::string_view name) {
    ResultRow& row = rows_[index];
    if (row.isFolder) RenameFolder(row.folder->longPath, name);
    const char* const before = row.name.data();
    row.name = KeepName(name);
    if (details_) details_->Renamed(before, row.name.data());
    index_.reset();
    ++generation_;
}

std::uint64_t ResultList::VersionKey(std::size_t index) const {
    const ResultRow& row = rows_[index];
    if (row.IsSpacer() || row.isFolder || !details_) return 0;
    return details_->VersionKey(row, FullPath(index));
}

std::string ResultList::CellTip(std::size_t index, Column column) const {
    if (rows_[index].IsSpacer()) return {};
    std::string path = PathCell(index);
    return text::Length(path) > kTipFromLength ? path : Cell(index, column);
}

fields::Color ResultList::CellColor(std::size_t index, Column column) const {
    const ResultRow& row = rows_[index];
    if (row.IsSpacer()) return fields::kBlack;
    if (row.Has(kListed)) {
        return row.Has(kReplacement) ? kReplacementColor
               : row.Has(kEntry)     ? fields::kBlue
                                     : fields::kBlack;
    }
    if ((column == kName || column == kSearchForEntry) &&
        row.searchForIndex < kSearchColors.size() &&
        kSearchColors[row.searchForIndex] != kOwnColor) {
        return kSearchColors[row.searchForIndex];
    }
    if (row.isFolder) return fields::kRed;
    if (column == kSize && row.size > kLargestShownSize) return fields::kRed;
    if (column == kPathNameLength && NeedsShortName(row, text::Length(FullPath(index)))) {
        return fields::kRed;
    }
    return fields::kBlue;
}

// Bytes are never fewer than characters, so a short byte count settles most paths.
std::string OpenablePath(std::string path) {
    if (path.size() <= session::kLongPath || text::Length(path) <= session::kLongPath) return path;
    return session::MixPath(path, session::ShortFormOf(path));
}

std::string BuildAttributeString(std::uint32_t bits) {
    std::string letters;
    for (const auto& [bit, letter] : kAttributeLetters) {
        if ((bits & bit) != 0) letters += letter;
    }
    return letters;
}

std::string JoinRowPath(const RowFolder& folder, std::string_view name, bool isFolder) {
    std::string path;
    path.reserve(folder.longPath.size() + 1 + name.size());
    AssignRowPath(path, folder, name, isFolder);
    return path;
}

void AssignRowPath(std::string& path, const RowFolder& folder, std::string_view name,
                   bool isFolder) {
    path = folder.longPath;
    if (!isFolder) text::AppendToPath(path, name);
}

} // namespace tarvix::results
