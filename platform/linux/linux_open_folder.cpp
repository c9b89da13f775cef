#include "platform/linux/linux_open_folder.h"

#include "platform/linux/errno_failure.h"
#include "platform/linux/folder_reader.h"
#include "platform/linux/native_facts.h"
#include "platform/linux/system_calls.h"
#include "platform/names.h"
#include "platform/try.h"
#include "text/paths.h"

#include <climits>

#include <array>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <utility>

namespace tarvix::platform {

namespace {
// The kind of an entry, asked of the disk only where the listing leaves it open.
FolderEntry KindOf(int folder, const FolderReader::Entry& raw) {
    FolderEntry entry;
    unsigned char type = raw.type;
    if (type == DT_UNKNOWN) {
        const auto st = StatOf(At{folder, raw.name.data()});
        if (st && S_ISDIR(st->stx_mode)) type = DT_DIR;
        if (st && S_ISLNK(st->stx_mode)) type = DT_LNK;
    }
    entry.isFolder = type == DT_DIR;
    if (type == DT_LNK) {
        const auto behind = StatBehind({folder, raw.name.data()});
        entry.isLink = true;
        entry.isFolder = behind && S_ISDIR(behind->stx_mode);
    }
    return entry;
}

constexpr std::size_t kKeptRoom = 4096; // names

using NameBuffer = std::array<char, NAME_MAX + 1>;

// The disk name, ended by NUL; false when no disk name is that long.
bool PutNativeName(NameBuffer& buffer, std::string_view driveName) {
    std::string carried;
    if (driveName.find('\xEF') != driveName.npos) {
        carried = NameToNative(driveName);
        driveName = carried;
    }
    if (driveName.size() >= buffer.size()) return false;
    buffer[driveName.copy(buffer.data(), driveName.size())] = '\0';
    return true;
}
} // namespace

LinuxOpenFolder::LinuxOpenFolder(UniqueFd fd, std::shared_ptr<const DriveTable> drives,
                                 std::string native, std::string path,
                                 std::shared_ptr<ListingStore> listings)
    : fd_(std::move(fd)), drives_(std::move(drives)), boundaries_(drives_->BoundariesIn(native)),
      native_(std::move(native)), path_(std::move(path)), listings_(std::move(listings)) {}

Result<void> LinuxOpenFolder::List(FolderListing& listing) {
    if (!KeepsListings()) return Read(listing);
    TX_TRY_ASSIGN(const auto names, Names());
    listing = *names;
    return {};
}

// Which of its names are boundaries goes by the path, so folders that have some are never kept.
Result<std::shared_ptr<const FolderListing>> LinuxOpenFolder::Names(const More& more) {
    static thread_local FolderListing scratch;
    const bool mayKeep = boundaries_ == nullptr && KeepsListings();
    const auto before = mayKeep ? StatOf(fd_.Get()) : Sys<struct statx>(std::unexpected(0));
    if (before) {
        if (auto known = listings_->Find(*before, drives_.get())) return known;
    }
    const std::int64_t begunAt = listings_ ? listings_->Now() : 0;
    TX_TRY(Read(scratch, more));
    const bool isLarge = scratch.Size() > kKeptRoom; // and not worth a copy
    auto names = isLarge ? std::make_shared<const FolderListing>(std::exchange(scratch, {}))
                         : std::make_shared<const FolderListing>(scratch);
    if (before) listings_->Keep(fd_.Get(), *before, drives_, names);
    if (listings_) listings_->NoteInUse(fd_.Get(), begunAt, names);
    return names;
}

Result<void> LinuxOpenFolder::Read(FolderListing& listing, const More& more) {
    listing.Clear();
    FolderReader reader(fd_.Get(), !std::exchange(wasRead_, true));
    FolderReader::Entry raw{};
    std::string name;
    while (reader.Next(raw)) {
        FolderEntry entry = KindOf(fd_.Get(), raw);
        entry.isBoundary = boundaries_ != nullptr && boundaries_->contains(std::string(raw.name));
        name.clear();
        AppendNameToDrive(name, raw.name);
        entry.name = name;
        listing.Add(entry);
        if (more && reader.IsAtEndOfBlock()) more(listing);
    }
    if (reader.Error() == ENOENT) return FailureBy(kPathNotFound, path_);
    if (reader.Error() != 0) return FailureOf(reader.Error(), path_);
    listing.SortByName();
    return {};
}

void LinuxOpenFolder::Visit(const VisitWish& wish, const std::atomic<bool>& isDropped,
                            FolderVisit& visit) {
    auto names = Names();
    if (!names) {
        visit = {};
        return;
    }
    if (visit.names != *names) {
        visit = {};
        visit.names = std::move(*names);
        FindWanted(wish, visit);
    }
    if (wish.folderFacts) {
        const auto st = StatOf(fd_.Get());
        const std::string name = NameToNative(text::FolderOwnName(path_));
        if (st) visit.folder = BriefFrom(*st, name, {fd_.Get(), "."}, *drives_);
    }
    if (!wish.facts) return;
    visit.facts.resize(visit.wanted.size());
    for (std::size_t i = 0; i < visit.wanted.size() && !isDropped; ++i)
        visit.facts[i] = FactsOf((*visit.names)[visit.wanted[i]].name);
}

std::shared_ptr<const FolderListing> LinuxOpenFolder::NamesInParts(const More& more) {
    auto names = Names(more);
    return names ? std::move(*names) : nullptr;
}

BriefFacts LinuxOpenFolder::FactsOf(std::string_view name) const {
    NameBuffer native;
    if (!PutNativeName(native, name)) return {};
    const At at{fd_.Get(), native.data()};
    const auto st = StatOf(at);
    return st ? BriefFrom(*st, native.data(), at, *drives_) : BriefFacts();
}

std::string LinuxOpenFolder::NativeOf(std::string_view nativeName) const {
    std::string path;
    path.reserve(native_.size() + 1 + nativeName.size());
    path.append(native_);
    if (!path.ends_with('/')) path += '/';
    return path.append(nativeName);
}

Sys<LinuxOpenFolder> LinuxOpenFolder::OpenChild(const std::string& nativeName,
                                                const std::string& path) const {
    TX_TRY_ASSIGN(UniqueFd fd,
                  OpenAt({fd_.Get(), nativeName.c_str()}, O_RDONLY | O_DIRECTORY | O_NOFOLLOW));
    return LinuxOpenFolder(std::move(fd), drives_, NativeOf(nativeName), path, listings_);
}

std::shared_ptr<const FolderListing>
LinuxOpenFolder::KnownNames(const struct statx& st, const std::string& nativeName) const {
    if (!listings_ || drives_->BoundariesIn(NativeOf(nativeName)) != nullptr) return nullptr;
    return listings_->Find(st, drives_.get());
}

BriefFacts LinuxOpenFolder::ChildFacts(const struct statx& st,
                                       const std::string& nativeName) const {
    return BriefFrom(st, nativeName, {fd_.Get(), nativeName.c_str()}, *drives_);
}

Result<ObjectFacts> LinuxOpenFolder::Facts(std::string_view name) {
    NameBuffer native;
    if (!CanBeName(name) || !PutNativeName(native, name)) {
        return FailureBy(kBadFileName, text::JoinPath(path_, name));
    }
    const At at{fd_.Get(), native.data()};
    const auto st = StatOf(at);
    if (!st) return FailureOf(st.error(), text::JoinPath(path_, name));
    return FactsFrom(*st, native.data(), at, *drives_);
}

} // namespace tarvix::platform
