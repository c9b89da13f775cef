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

constexpr std::uint32_t kEntryMask = (1U << 24) - 1; // more than there can be rows

std::size_t HashPath(std::string_view path) {
    return std::hash<std::string_view>{}(path);
}

} // namespace

// Rows by the hash of their path; equal hashes are told apart by the path itself.
struct ResultList::PathIndex {
    std::unordered_multimap<std::size_t, std::uint32_t> byHash;
};

ResultList::ResultList() {
    rows_.Add({});
}
ResultList::~ResultList() = default;

void ResultList::Clear() {
    rows_.Clear();
    rows_.Add({});
    lines_ = {};
    folders_.clear();
    names_.Clear();
    held_.clear();
    entryNumbers_.clear();
    entries_.clear();
    lastEntry_ = 0;
    identities_.Clear();
    index_.reset();
    if (details_) details_->Clear();
    ++generation_;
    ++clearings_;
}

const RowFolder* ResultList::AddFolder(RowFolder folder) {
    folder.number = static_cast<std::uint32_t>(folders_.size());
    folders_.push_back(std::move(folder));
    return &folders_.back();
}

std::uint32_t ResultList::KeepEntry(std::string_view entry) {
    if (!entries_.empty() && *entries_[lastEntry_] == entry) return lastEntry_;
    const auto next = static_cast<std::uint32_t>(entries_.size());
    const auto [kept, isNew] = entryNumbers_.try_emplace(std::string(entry), next);
    if (isNew) entries_.push_back(&kept->first);
    lastEntry_ = kept->second;
    return lastEntry_;
}

// Never by a little, so that many small calls cost no more than growing by itself.
void ResultList::Reserve(std::size_t more) {
    const std::size_t wanted = lines_.size() + more;
    if (wanted > lines_.capacity()) lines_.reserve(std::max(wanted, lines_.capacity() * 2));
}

void ResultList::Hold(std::shared_ptr<const void> names) {
    held_.push_back(std::move(names));
}

std::size_t ResultList::Add(ResultRow row, std::string_view searchEntry, bool isNameHeld) {
    lines_.push_back(row.IsSpacer() ? kSpacer : static_cast<std::uint32_t>(rows_.Size()));
    const std::size_t added = lines_.size() - 1;
    if (row.IsSpacer()) return added;
    if (!isNameHeld) row.name = names_.Keep(row.name);
    row.searchEntry = KeepEntry(searchEntry) & kEntryMask;
    rows_.Add(row);
    if (index_) {
        index_->byHash.emplace(HashPath(FullPath(added)), static_cast<std::uint32_t>(added));
    }
    return added;
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
        index_->byHash.reserve(rows_.Size() * 2);
        for (std::size_t i = 0; i < Count(); ++i) {
            if (IsSpacer(i)) continue;
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
    const std::string& held = SearchEntry(At(index));
    for (std::size_t i = 0; i + 2 <= held.size(); i += 2) {
        if (held.compare(i, 2, twoDigits) == 0) return;
    }
    At(index).searchEntry = KeepEntry(held + std::string(twoDigits)) & kEntryMask;
}

bool ResultList::StandAsAdded() const {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (lines_[i] != i + kFirst) return false;
    }
    return true;
}

void ResultList::Reorder(const std::vector<std::uint32_t>& order) {
    std::vector<std::uint32_t> lines;
    lines.reserve(order.size());
    for (const std::uint32_t from : order)
        lines.push_back(lines_[from]);
    Replace(std::move(lines));
}

void ResultList::RemoveSpacers() {
    std::vector<std::uint32_t> lines;
    lines.reserve(rows_.Size());
    std::ranges::remove_copy(lines_, std::back_inserter(lines), kSpacer);
    Replace(std::move(lines));
}

void ResultList::InsertSpacers(const std::vector<std::uint32_t>& before) {
    std::vector<std::uint32_t> lines;
    lines.reserve(lines_.size() + before.size());
    auto taken = lines_.cbegin();
    for (const std::uint32_t at : before) {
        const auto next = lines_.cbegin() + at;
        lines.insert(lines.end(), taken, next);
        lines.push_back(kSpacer);
        taken = next;
    }
    lines.insert(lines.end(), taken, lines_.cend());
    Replace(std::move(lines));
}

void ResultList::Replace(std::vector<std::uint32_t> lines) {
    lines_ = std::move(lines);
    index_.reset();
    ++generation_;
}

std::string ResultList::FullPath(std::size_t index) const {
    const ResultRow& row = At(index);
    if (row.IsSpacer()) return {};
    return JoinRowPath(*row.folder, row.name, row.isFolder);
}

LinkCells& ResultList::Links(std::size_t index) {
    return details_->Links(At(index), FullPath(index));
}

void ResultList::SetLinks(std::size_t index, LinkCells cells) {
    if (details_) details_->SetLinks(At(index), std::move(cells));
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
    ResultRow& row = At(index);
    if (row.isFolder) RenameFolder(row.folder->longPath, name);
    const char* const before = row.name.data();
    row.name = names_.Keep(name);
    if (details_) details_->Renamed(before, row.name.data());
    index_.reset();
    ++generation_;
}

std::uint64_t ResultList::VersionKey(std::size_t index) const {
    const ResultRow& row = At(index);
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
    for (const std::string_view piece : RowPathPieces(folder, name, isFolder))
        out += piece;
}

std::array<std::string_view, 3> RowPathPieces(const RowFolder& folder, std::string_view name,
                                              bool isFolder) {
    const std::string_view path = folder.longPath;
    if (isFolder) return {path, "", ""};
    return {path, path.empty() || path.ends_with('\\') ? "" : "\\", name};
}

} // namespace tarvix::results
