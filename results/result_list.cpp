#include "results/result_list.h"

#include "results/link_cells.h"
#include "results/row_details.h"
#include "session/paths/short_path.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace tarvix::results {

namespace {

std::size_t HashPath(std::string_view path) {
    return std::hash<std::string_view>{}(path);
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
    names_.Clear();
    entries_.clear();
    lastEntry_ = nullptr;
    identities_.Clear();
    index_.reset();
    if (details_) details_->Clear();
    ++generation_;
    ++clearings_;
}

const RowFolder* ResultList::AddFolder(RowFolder folder) {
    folders_.push_back(std::move(folder));
    return &folders_.back();
}

const std::string* ResultList::KeepEntry(std::string_view entry) {
    if (lastEntry_ == nullptr || *lastEntry_ != entry) lastEntry_ = &*entries_.emplace(entry).first;
    return lastEntry_;
}

// Never by a little, so that many small calls cost no more than growing by itself.
void ResultList::Reserve(std::size_t more) {
    const std::size_t wanted = rows_.size() + more;
    if (wanted > rows_.capacity()) rows_.reserve(std::max(wanted, rows_.capacity() * 2));
}

std::size_t ResultList::Add(ResultRow row, std::string_view searchEntry) {
    row.name = names_.Keep(row.name);
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

// In their places, along each circle of rows that follow one another.
void ResultList::Reorder(const std::vector<std::uint32_t>& order) {
    std::vector<bool> stands(rows_.size());
    for (std::size_t start = 0; start < rows_.size(); ++start) {
        if (stands[start]) continue;
        const ResultRow first = rows_[start];
        std::size_t at = start;
        for (std::size_t from = order[at]; from != start; at = from, from = order[at]) {
            rows_[at] = rows_[from];
            stands[at] = true;
        }
        rows_[at] = first;
        stands[at] = true;
    }
    index_.reset();
    ++generation_;
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
    row.name = names_.Keep(name);
    if (details_) details_->Renamed(before, row.name.data());
    index_.reset();
    ++generation_;
}

std::uint64_t ResultList::VersionKey(std::size_t index) const {
    const ResultRow& row = rows_[index];
    if (row.IsSpacer() || row.isFolder || !details_) return 0;
    return details_->VersionKey(row, FullPath(index));
}

// Bytes are never fewer than characters, so a short byte count settles most paths.
std::string OpenablePath(std::string path) {
    if (path.size() <= session::kLongPath || text::Length(path) <= session::kLongPath) return path;
    return session::MixPath(path, session::ShortFormOf(path));
}

std::string JoinRowPath(const RowFolder& folder, std::string_view name, bool isFolder) {
    std::string path;
    path.reserve(folder.longPath.size() + 1 + name.size());
    AppendRowPath(path, folder, name, isFolder);
    return path;
}

void AppendRowPath(std::string& out, const RowFolder& folder, std::string_view name,
                   bool isFolder) {
    out += folder.longPath;
    if (isFolder) return;
    if (folder.longPath.empty()) {
        out += name;
    } else {
        text::AppendToPath(out, name);
    }
}

} // namespace tarvix::results
