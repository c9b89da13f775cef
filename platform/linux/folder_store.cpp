#include "platform/linux/folder_store.h"

#include "platform/try.h"
#include "text/characters.h"

#include <climits>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kMostFolders = 4096;
constexpr std::size_t kMostNames = 400'000;
constexpr std::size_t kMostWays = 2048;
constexpr std::size_t kMostHeld = 32;
constexpr std::size_t kMostTrueFolders = 64;
constexpr int kOftenEnough = 6; // what opening and closing costs must come in again
} // namespace

StoreCounts FolderStore::Counts() const {
    const std::scoped_lock lock(mutex_);
    StoreCounts counts = counts_;
    counts.resolved = resolved_;
    counts.parsed = parsed_;
    counts.walked = walked_;
    return counts;
}

// ---- texts ----

void FolderStore::NoteResolved(bool isParsed) {
    ++resolved_;
    if (isParsed) ++parsed_;
}

std::shared_ptr<const PathStart> FolderStore::FindWay(const DriveTable* drives,
                                                      std::string_view folder, std::size_t room,
                                                      std::string& native) {
    const std::scoped_lock lock(waysMutex_);
    if (drives != drives_.get()) return nullptr;
    const auto* const found = lastWays_.In(ways_, folder);
    if (found == nullptr) return nullptr;
    const Way& way = found->second;
    native.reserve(way.native.size() + room);
    native = way.native;
    return way.start;
}

void FolderStore::NoteWay(std::shared_ptr<const PathStart> start, std::string_view folder,
                          std::string_view native) {
    const std::scoped_lock lock(waysMutex_);
    if (drives_ != start->drives || ways_.size() >= kMostWays) {
        lastWays_.Forget();
        ways_.clear();
    }
    drives_ = start->drives;
    ways_.insert_or_assign(std::string(folder), Way{std::move(start), text::Concat({native, "/"})});
}

// ---- one folder ----

FolderStore::Entry& FolderStore::At(std::string_view path) {
    Entry* entry = lastFolders_.In(folders_, path);
    if (entry == nullptr) {
        MakeRoom();
        entry = &*folders_.try_emplace(std::string(path)).first;
    }
    entry->second.usedAt = clock_.tick();
    return *entry;
}

FolderStore::Folder* FolderStore::WithNames(std::string_view path) {
    Entry* const found = lastFolders_.In(folders_, path);
    return found == nullptr || !found->second.names ? nullptr : &found->second;
}

// Another folder at the same path shares nothing with the one that was there.
void FolderStore::Set(Folder& folder, const struct statx& st, std::int64_t now) {
    if (folder.inode != st.stx_ino || folder.device != DeviceOf(st)) {
        folder.names.reset();
        folder.hasOwnChange = false;
        folder.inode = st.stx_ino;
        folder.device = DeviceOf(st);
    }
    folder.modified = TimeOf(st.stx_mtime);
    folder.checkedAt = now;
}

Sys<void> FolderStore::LookAt(Entry& entry) {
    auto& [path, folder] = entry;
    ++counts_.asked;
    const std::uint64_t device = folder.device;
    const std::uint64_t inode = folder.inode;
    auto st = StatBehindPath(path);
    if (st && !S_ISDIR(st->stx_mode)) st = std::unexpected(ENOTDIR);
    const bool isSame = st && st->stx_ino == inode && DeviceOf(*st) == device;
    if (!isSame) Release(entry);
    if (!st) {
        folder.names.reset();
        return std::unexpected(st.error());
    }
    Set(folder, *st, clock_.tick());
    return {};
}

void FolderStore::MakeRoom() {
    if (folders_.size() < kMostFolders && names_ <= kMostNames) return;
    // The older half goes at once, so that this is seldom needed.
    std::vector<std::int64_t> used;
    used.reserve(folders_.size());
    for (const auto& [path, folder] : folders_)
        used.push_back(folder.usedAt);
    const auto middle = used.begin() + static_cast<std::ptrdiff_t>(used.size() / 2);
    std::nth_element(used.begin(), middle, used.end());
    LetGo();
    lastFolders_.Forget();
    std::erase_if(folders_,
                  [last = *middle](const auto& entry) { return entry.second.usedAt <= last; });
    names_ = 0;
    for (const auto& [path, folder] : folders_)
        names_ += folder.names ? folder.names->Size() : 0;
}

// ---- descriptors ----

void FolderStore::EndRun() {
    if (--depth_ > 0) return;
    const std::scoped_lock lock(mutex_);
    LetGo();
}

void FolderStore::Release(Entry& entry) {
    entry.second.asked = 0;
    if (!entry.second.fd) return;
    entry.second.fd.reset();
    std::erase(held_, &entry);
}

void FolderStore::LetGo() {
    {
        const std::scoped_lock lock(trueFoldersMutex_);
        trueFolders_.clear();
    }
    for (Entry* entry : held_) {
        entry->second.fd.reset();
        entry->second.asked = 0;
    }
    held_.clear();
}

void FolderStore::LetGoBelow(std::string_view path) {
    const auto isBelow = [path](const TrueFolder& known) {
        return known.path.size() >= path.size() && IsAtOrBelow(known.path, path);
    };
    // Asked at each object that is made, mostly for nothing.
    {
        const std::scoped_lock lock(trueFoldersMutex_);
        if (std::ranges::any_of(trueFolders_, isBelow)) std::erase_if(trueFolders_, isBelow);
    }
    std::erase_if(held_, [path](Entry* entry) {
        if (!IsAtOrBelow(entry->first, path)) return false;
        entry->second.fd.reset();
        return true;
    });
}

Sys<Location> FolderStore::Locate(const std::string& native) {
    const std::size_t slash = std::min(text::LastOf(native, '/'), native.size());
    if (depth_ > 0 && slash > 0 && slash < PATH_MAX) {
        if (auto held = Held(std::string_view(native).substr(0, slash))) {
            return Location{std::move(held), native.c_str() + slash + 1};
        }
    }
    ++walked_;
    return platform::Locate(native);
}

Sys<struct statx> FolderStore::Stat(const std::string& native) {
    TX_TRY_ASSIGN(const Location location, Locate(native));
    return StatOf(platform::At(location));
}

Sys<Location> FolderStore::LocateBelow(const std::string& native, std::size_t folderLength) {
    const std::size_t slash = text::LastOf(native, '/');
    TX_TRY_ASSIGN(auto folder,
                  TrueFolderAt(std::string_view(native).substr(0, slash), folderLength));
    return Location{std::move(folder), native.c_str() + slash + 1};
}

Sys<Location> FolderStore::LocateFrom(const std::string& native, std::size_t folderLength) {
    TX_TRY_ASSIGN(auto folder,
                  TrueFolderAt(std::string_view(native).substr(0, folderLength), folderLength));
    return Location{std::move(folder), native.c_str() + folderLength + 1};
}

// Most objects lie in the folder of the one before them.
std::shared_ptr<const UniqueFd> FolderStore::KnownTrueFolder(std::string_view path,
                                                             std::size_t folderLength,
                                                             std::int64_t now) const {
    const auto known =
        std::find_if(trueFolders_.rbegin(), trueFolders_.rend(), [&](const TrueFolder& folder) {
            return folder.path == path && folder.folderLength == folderLength && folder.fd;
        });
    const bool isBelieved = known != trueFolders_.rend() && now - known->openedAt <= kBelieved;
    return isBelieved ? known->fd : nullptr;
}

// Gives what is to be closed for it, once the store is free again.
std::shared_ptr<const UniqueFd> FolderStore::NoteOpening(TrueFolder folder) {
    std::shared_ptr<const UniqueFd> oldest;
    if (trueFolders_.size() >= kMostTrueFolders) {
        oldest = std::move(trueFolders_.front().fd);
        trueFolders_.pop_front();
    }
    trueFolders_.push_back(std::move(folder));
    return oldest;
}

// What was let go meanwhile stays so.
void FolderStore::NoteOpened(std::uint64_t number, const std::shared_ptr<const UniqueFd>& fd) {
    const auto opened =
        std::find_if(trueFolders_.rbegin(), trueFolders_.rend(),
                     [number](const TrueFolder& folder) { return folder.number == number; });
    if (opened != trueFolders_.rend()) opened->fd = fd;
}

// Nobody waits for what another thread opens.
Sys<std::shared_ptr<const UniqueFd>> FolderStore::TrueFolderAt(std::string_view path,
                                                               std::size_t folderLength) {
    const std::int64_t now = clock_.tick();
    std::shared_ptr<const UniqueFd> oldest;
    std::uint64_t number = 0;
    {
        const std::scoped_lock lock(trueFoldersMutex_);
        if (auto known = KnownTrueFolder(path, folderLength, now)) return known;
        number = ++lastOpened_;
        if (depth_ > 0) {
            oldest = NoteOpening({std::string(path), folderLength, nullptr, now, number});
        }
    }
    TX_TRY_ASSIGN(UniqueFd opened, OpenTrueFolder(path, folderLength));
    auto fd = std::make_shared<const UniqueFd>(std::move(opened));
    const std::scoped_lock lock(trueFoldersMutex_);
    NoteOpened(number, fd);
    return fd;
}

Sys<UniqueFd> FolderStore::OpenTrueFolder(std::string_view path, std::size_t folderLength) {
    ++walked_;
    if (path.size() <= folderLength) {
        const std::string folder(path);
        TX_TRY_ASSIGN(const Location location, platform::Locate(folder));
        return OpenAt(location, O_PATH | O_DIRECTORY);
    }
    TX_TRY_ASSIGN(const auto outer, TrueFolderAt(path.substr(0, folderLength), folderLength));
    return OpenBelow(outer->Get(), path.substr(folderLength + 1));
}

std::shared_ptr<const UniqueFd> FolderStore::Held(std::string_view path) {
    const std::scoped_lock lock(mutex_);
    Entry& entry = At(path);
    Folder& folder = entry.second;
    // What is asked for so rarely that it must be looked at each time isn't worth holding.
    if (folder.usedAt - std::exchange(folder.askedAt, folder.usedAt) > kBelieved) Release(entry);
    if (folder.fd && folder.usedAt - folder.checkedAt > kBelieved) (void)LookAt(entry);
    if (!folder.fd && ++folder.asked >= kOftenEnough) Hold(entry);
    return folder.fd;
}

void FolderStore::Hold(Entry& entry) {
    auto& [path, folder] = entry;
    folder.asked = 0;
    if (held_.size() >= kMostHeld) {
        Entry* const oldest = *std::ranges::min_element(
            held_, {}, [](const Entry* held) { return held->second.askedAt; });
        if (folder.askedAt - oldest->second.askedAt <= kBelieved) return;
        Release(*oldest);
    }
    auto fd = OpenAt({AT_FDCWD, path.c_str()}, O_PATH | O_DIRECTORY);
    if (!fd) return;
    const auto st = StatOf(fd->Get());
    if (!st) return;
    folder.fd = std::make_shared<const UniqueFd>(std::move(*fd));
    held_.push_back(&entry);
    Set(folder, *st, clock_.tick());
}

} // namespace tarvix::platform
