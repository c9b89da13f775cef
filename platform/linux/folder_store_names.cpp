#include "platform/linux/folder_reader.h"
#include "platform/linux/folder_store.h"
#include "platform/linux/listing_store.h"
#include "platform/names.h"
#include "platform/short_names.h"
#include "platform/try.h"

#include <algorithm>
#include <fcntl.h>

// The names in folders, and what becomes of them.
namespace tarvix::platform {

namespace {
constexpr std::int64_t kOwnBelieved = 20'000'000; // nanoseconds
constexpr std::int64_t kFreeBelieved = 1'000'000'000;
constexpr std::int64_t kCheap = 200'000;
constexpr std::int64_t kShare = 100; // reading again may take one part in so many of the time

Sys<NameTable> NamesRead(int fd) {
    NameTable names;
    FolderReader reader(fd, true);
    FolderReader::Entry listed{};
    while (reader.Next(listed))
        names.Add(listed.name);
    if (reader.Error() != 0) return std::unexpected(reader.Error());
    return names;
}

NameTable NamesOf(const FolderListing& listing) {
    NameTable names;
    names.Reserve(listing.Size());
    std::string native;
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        native.clear();
        AppendNameToNative(native, listing[i].name);
        names.Add(native);
    }
    return names;
}
} // namespace

// Reading again must never take more than a small share of the time, however many others' changes
// and misses follow each other.
bool FolderStore::IsDue(const Folder& folder, std::int64_t now) {
    const std::int64_t pause = kShare * folder.readCost;
    if (folder.hasOwnChange) return now - folder.readAt > std::max(kOwnBelieved, pause);
    if (!folder.isFresh && folder.namesDate == folder.modified) return false;
    return folder.readCost < kCheap || now - folder.readAt > pause;
}

// A folder that we are changing ourselves isn't looked at for each of our own changes.
Sys<FolderStore::Folder*> FolderStore::Valid(std::string_view path) {
    Entry& entry = At(path);
    Folder& folder = entry.second;
    const bool isTrusted = folder.names && folder.hasOwnChange &&
                           folder.usedAt - folder.checkedAt <= kBelieved &&
                           !IsDue(folder, folder.usedAt);
    if (isTrusted) return &folder;
    TX_TRY(LookAt(entry));
    folder.isCurrent =
        !folder.hasOwnChange && !folder.isFresh && folder.namesDate == folder.modified;
    if (!folder.names || IsDue(folder, clock_.now())) TX_TRY(Read(entry));
    return &folder;
}

Sys<void> FolderStore::Read(Entry& entry) {
    auto& [path, folder] = entry;
    ++counts_.read;
    folder.names.reset();
    TX_TRY_ASSIGN(const Location location, platform::Locate(path));
    TX_TRY_ASSIGN(const UniqueFd fd, OpenAt(location, O_RDONLY | O_DIRECTORY));
    TX_TRY_ASSIGN(const auto st, StatOf(fd.Get()));
    const FileTime date = folder.modified; // of before: what comes meanwhile changes it
    Set(folder, st, clock_.tick());
    folder.modified = folder.namesDate = date;
    folder.readAt = clock_.now();
    folder.isFresh = RealNow() - date < DateStep(date);
    folder.hasOwnChange = folder.hasOwnChange && folder.isFresh;
    const auto kept = listings_ ? listings_->FindNames(st) : nullptr;
    TX_TRY_ASSIGN(NameTable names, kept ? NamesOf(*kept) : NamesRead(fd.Get()));
    folder.readCost = clock_.now() - folder.readAt;
    names_ += names.Size();
    folder.isCurrent = true;
    folder.names = std::move(names);
    return {};
}

Sys<std::optional<std::string>> FolderStore::Find(std::string_view folder, std::string_view name) {
    const std::scoped_lock lock(mutex_);
    TX_TRY_ASSIGN(Folder* const valid, Valid(folder));
    const std::string_view found = valid->names->Find(name);
    if (found.empty()) return std::nullopt;
    return std::string(found);
}

bool FolderStore::LacksName(std::string_view path, Folder& known, std::string_view name) {
    known.usedAt = clock_.tick();
    const std::int64_t believed = std::max(kFreeBelieved, kShare * known.readCost);
    if (known.hasOwnChange && known.usedAt - known.readAt < believed) {
        return known.names->IsFree(name);
    }
    const auto valid = Valid(path);
    return valid && (*valid)->isCurrent && (*valid)->names->IsFree(name);
}

Vacancy FolderStore::VacancyOf(std::string_view native) {
    const std::scoped_lock lock(mutex_);
    Vacancy vacancy = Vacancy::kName;
    while (true) {
        const auto [folder, name] = PartsOf(native);
        if (name.empty() || LooksLikeMadeShortName(name)) return Vacancy::kUnknown;
        if (Folder* const known = WithNames(folder); known != nullptr) {
            return LacksName(folder, *known, name) ? vacancy : Vacancy::kUnknown;
        }
        native = folder;
        vacancy = Vacancy::kFolder;
    }
}

bool FolderStore::HasOther(std::string_view folder, std::string_view nativeName,
                           std::string_view except) {
    const std::scoped_lock lock(mutex_);
    const auto valid = Valid(folder);
    return valid && (*valid)->names->HasOther(nativeName, except);
}

// ---- what this process did ----

void FolderStore::NoteMade(std::string_view native) {
    const std::scoped_lock lock(mutex_);
    LetGoBelow(native);
    Add(native);
}

// As long as what this process puts there is told. To all who look at the folder it isn't known.
void FolderStore::NoteFolderMade(std::string_view native) {
    NoteMade(native);
    const std::scoped_lock lock(mutex_);
    Folder& folder = At(native).second;
    folder.device = folder.inode = 0;
    folder.names.emplace();
    folder.hasOwnChange = folder.isFresh = true;
    folder.isCurrent = false;
    folder.readAt = folder.usedAt;
    folder.readCost = 0;
    folder.checkedAt = folder.usedAt - kBelieved - 1;
}

void FolderStore::Add(std::string_view native) {
    const auto [folder, name] = PartsOf(native);
    Folder* const known = WithNames(folder);
    if (known == nullptr) return;
    known->names->Add(name);
    known->hasOwnChange = true;
}

void FolderStore::Remove(std::string_view native) {
    const auto [folder, name] = PartsOf(native);
    Folder* const known = WithNames(folder);
    if (known == nullptr) return;
    known->hasOwnChange = true;
    if (!known->names->Remove(name)) known->names.reset();
}

void FolderStore::NoteRemoved(std::string_view native) {
    const std::scoped_lock lock(mutex_);
    Remove(native);
}

void FolderStore::NoteRenamed(std::string_view from, std::string_view to) {
    const auto [folder, name] = PartsOf(from);
    const auto [toFolder, toName] = PartsOf(to);
    const std::scoped_lock lock(mutex_);
    if (folder != toFolder) {
        Remove(from);
        Add(to);
        return;
    }
    Folder* const known = WithNames(folder);
    if (known == nullptr) return;
    known->hasOwnChange = true;
    if (!known->names->Rename(name, toName)) known->names.reset();
}

void FolderStore::NoteMoved(std::string_view native) {
    {
        const std::scoped_lock lock(mutex_);
        LetGo();
    }
    Forget(native);
}

void FolderStore::Forget(std::string_view folder) {
    const std::scoped_lock lock(mutex_);
    for (auto& [path, known] : folders_) {
        if (!known.names || !IsAtOrBelow(path, folder)) continue;
        known.names.reset();
        known.hasOwnChange = false;
    }
}

} // namespace tarvix::platform
