#include "platform/linux/name_cache.h"

#include "platform/linux/folder_reader.h"
#include "platform/linux/system_calls.h"
#include "platform/names.h"
#include "platform/short_names.h"
#include "text/case.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fcntl.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kMostFolders = 4096;
constexpr std::size_t kMostNames = 400'000;
// Longer than the step of any file system's dates but FAT's, whose folders are read again sooner.
constexpr std::int64_t kDateStep = 20'000'000;
constexpr std::int64_t kTrusted = 5'000'000;
constexpr std::int64_t kOwnTrusted = 1'000'000'000;
constexpr std::int64_t kCheap = 200'000; // nanoseconds
constexpr std::int64_t kShare = 100;     // reading again may take one part in so many of the time

std::int64_t WallNow() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

bool HasWholeSeconds(std::int64_t modified) {
    return modified % 1'000'000'000 == 0;
}
} // namespace

// Reading again must never take more than a small share of the time, however many others' changes
// and misses follow each other.
bool NameCache::IsDue(const Folder& folder, std::int64_t modified, std::int64_t now) {
    const std::int64_t pause = kShare * folder.readCost;
    if (folder.hasOwnChange) return now - folder.readAt > std::max(kDateStep, pause);
    if (!folder.isFresh && folder.modified == modified) return false;
    return folder.readCost < kCheap || now - folder.readAt > pause;
}

// A folder that we are changing ourselves isn't looked at for each of our own changes.
Sys<NameCache::Folder*> NameCache::Valid(std::string_view path) {
    const auto found = folders_.find(path);
    if (found == folders_.end() || !found->second.hasOwnChange) return Checked(std::string(path));
    const std::int64_t now = SteadyNow();
    if (now - found->second.checkedAt > kTrusted) return Checked(std::string(path));
    found->second.usedAt = now;
    return &found->second;
}

Sys<NameCache::Folder*> NameCache::Checked(const std::string& path) {
    const auto st = StatBehindPath(path);
    if (!st) return std::unexpected(st.error());
    if (!S_ISDIR(st->stx_mode)) return std::unexpected(ENOTDIR);
    const std::int64_t modified = TimeOf(st->stx_mtime);
    const auto found = folders_.find(path);
    if (found == folders_.end()) return Read(path, modified);
    Folder& folder = found->second;
    const std::int64_t now = SteadyNow();
    const bool isSame = folder.inode == st->stx_ino && folder.device == DeviceOf(*st);
    if (!isSame || IsDue(folder, modified, now)) return Read(path, modified);
    folder.usedAt = folder.checkedAt = now;
    folder.isCurrent = !folder.hasOwnChange && !folder.isFresh && folder.modified == modified;
    return &folder;
}

Sys<NameCache::Folder*> NameCache::Read(const std::string& path, std::int64_t modified) {
    const auto former = folders_.find(path);
    const bool hadOwnChange = former != folders_.end() && former->second.hasOwnChange;
    if (former != folders_.end()) folders_.erase(former);
    const auto location = Locate(path);
    if (!location) return std::unexpected(location.error());
    const auto fd = OpenAt(*location, O_RDONLY | O_DIRECTORY);
    if (!fd) return std::unexpected(fd.error());
    const auto st = StatOf(fd->Get());
    if (!st) return std::unexpected(st.error());
    Folder folder;
    folder.device = DeviceOf(*st);
    folder.inode = st->stx_ino;
    folder.modified = modified;
    folder.readAt = SteadyNow();
    const std::int64_t step = HasWholeSeconds(modified) ? 100 * kDateStep : kDateStep;
    folder.isFresh = WallNow() - modified < step;
    folder.hasOwnChange = hadOwnChange && folder.isFresh;
    FolderReader reader(fd->Get());
    FolderReader::Entry entry{};
    while (reader.Next(entry))
        Add(folder, entry.name);
    if (reader.Error() != 0) return std::unexpected(reader.Error());
    folder.usedAt = folder.checkedAt = SteadyNow();
    folder.readCost = folder.usedAt - folder.readAt;
    names_ += folder.byUpper.size();
    MakeRoom();
    return &folders_.insert_or_assign(path, std::move(folder)).first->second;
}

void NameCache::Add(Folder& folder, std::string_view nativeName) {
    const auto [entry, isNew] = folder.byUpper.try_emplace(text::Upper(nativeName), nativeName);
    if (!isNew) {
        auto& others = folder.clashing;
        const bool isKnown = entry->second == nativeName ||
                             std::find(others.begin(), others.end(), nativeName) != others.end();
        if (isKnown) return;
        others.emplace_back(nativeName);
        if (NameToDrive(nativeName) < NameToDrive(entry->second)) entry->second.swap(others.back());
    }
    if (folder.byShort) AddShort(folder, nativeName);
}

void NameCache::AddShort(Folder& folder, std::string_view nativeName) {
    const std::string made = text::Upper(ShortNameOf(NameToDrive(nativeName)));
    const auto [entry, isNew] = folder.byShort->try_emplace(made, nativeName);
    if (!isNew && entry->second != nativeName) entry->second.clear();
}

void NameCache::MakeRoom() {
    if (folders_.size() < kMostFolders && names_ <= kMostNames) return;
    // The older half goes at once, so that this is seldom needed.
    std::vector<std::int64_t> used;
    used.reserve(folders_.size());
    for (const auto& [path, folder] : folders_)
        used.push_back(folder.usedAt);
    const auto middle = used.begin() + static_cast<std::ptrdiff_t>(used.size() / 2);
    std::nth_element(used.begin(), middle, used.end());
    std::erase_if(folders_,
                  [last = *middle](const auto& entry) { return entry.second.usedAt <= last; });
    names_ = 0;
    for (const auto& [path, folder] : folders_)
        names_ += folder.byUpper.size();
}

const std::string* NameCache::FindShort(Folder& folder, std::string_view name) {
    if (!folder.byShort) {
        folder.byShort.emplace();
        for (const auto& [upper, native] : folder.byUpper)
            AddShort(folder, native);
        for (const std::string& native : folder.clashing)
            AddShort(folder, native);
    }
    const auto found = folder.byShort->find(text::Upper(name));
    return found == folder.byShort->end() ? nullptr : &found->second;
}

Sys<std::optional<std::string>> NameCache::Find(std::string_view folder, std::string_view name) {
    const std::scoped_lock lock(mutex_);
    const auto valid = Valid(folder);
    if (!valid) return std::unexpected(valid.error());
    if (LooksLikeMadeShortName(name)) {
        const std::string* const native = FindShort(**valid, name);
        if (native != nullptr && native->empty()) return std::nullopt;
        if (native != nullptr) return *native;
    }
    const auto found = (*valid)->byUpper.find(text::Upper(NameToNative(name)));
    if (found == (*valid)->byUpper.end()) return std::nullopt;
    return found->second;
}

// What is looked for is mostly made next.
const std::string& NameCache::UpperOf(std::string_view nativeName) {
    if (lastName_ == nativeName) return lastUpper_;
    lastName_ = nativeName;
    lastUpper_.clear();
    text::AppendUpper(lastUpper_, nativeName);
    return lastUpper_;
}

// Where files are put into many folders in turn, each would else be read for every single one.
bool NameCache::WasReadJustNow(const Folder& folder) {
    return folder.hasOwnChange && SteadyTick() - folder.readAt < kOwnTrusted;
}

bool NameCache::IsKnownFree(std::string_view folder, std::string_view nativeName) {
    const std::scoped_lock lock(mutex_);
    const auto found = folders_.find(folder);
    if (found == folders_.end() || LooksLikeMadeShortName(nativeName)) return false;
    if (WasReadJustNow(found->second)) return !found->second.byUpper.contains(UpperOf(nativeName));
    const auto valid = Valid(folder);
    return valid && (*valid)->isCurrent && !(*valid)->byUpper.contains(UpperOf(nativeName));
}

bool NameCache::HasOther(std::string_view folder, std::string_view nativeName,
                         std::string_view except) {
    const std::scoped_lock lock(mutex_);
    const auto valid = Valid(folder);
    if (!valid) return false;
    const std::string upper = text::Upper(nativeName);
    const auto found = (*valid)->byUpper.find(upper);
    if (found != (*valid)->byUpper.end() && found->second != except) return true;
    const auto& others = (*valid)->clashing;
    return std::any_of(others.begin(), others.end(), [&](const std::string& other) {
        return other != except && text::Upper(other) == upper;
    });
}

void NameCache::NoteAdded(std::string_view folder, std::string_view nativeName) {
    const std::scoped_lock lock(mutex_);
    const auto found = folders_.find(folder);
    if (found == folders_.end()) return;
    Add(found->second, nativeName);
    found->second.hasOwnChange = true;
}

void NameCache::NoteRemoved(std::string_view folder, std::string_view nativeName) {
    const std::scoped_lock lock(mutex_);
    const auto found = folders_.find(folder);
    if (found == folders_.end()) return;
    if (!found->second.clashing.empty()) {
        folders_.erase(found);
        return;
    }
    found->second.byUpper.erase(text::Upper(nativeName));
    found->second.byShort.reset();
    found->second.hasOwnChange = true;
}

void NameCache::NoteRenamed(std::string_view folder, std::string_view from, std::string_view to) {
    const std::scoped_lock lock(mutex_);
    const auto found = folders_.find(folder);
    if (found == folders_.end()) return;
    if (!found->second.clashing.empty()) {
        folders_.erase(found);
        return;
    }
    found->second.byShort.reset();
    found->second.hasOwnChange = true;
    auto& names = found->second.byUpper;
    auto entry = names.extract(text::Upper(from));
    const std::string& upper = UpperOf(to);
    if (!entry || names.contains(upper)) return Add(found->second, to);
    entry.key() = upper;
    entry.mapped() = to;
    names.insert(std::move(entry));
}

void NameCache::Forget(std::string_view folder) {
    const std::scoped_lock lock(mutex_);
    std::erase_if(folders_, [folder](const auto& entry) {
        const std::string& path = entry.first;
        return path.starts_with(folder) &&
               (path.size() == folder.size() || path[folder.size()] == '/' || folder == "/");
    });
}

} // namespace tarvix::platform
