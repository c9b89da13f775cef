#include "platform/linux/file_copier.h"
#include "platform/linux/folder_copier.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/native_facts.h"
#include "platform/try.h"

#include <climits>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kMostPlanned = 64;

// Whether a file's facts can be trusted to tell of each change at once.
bool IsLocal(const Resolved& place) {
    return std::ranges::any_of(place.drives->Drives(), [&place](const DriveInfo& drive) {
        return drive.path == place.root && drive.type != DriveType::kNetwork;
    });
}

Sys<UniqueFd> OpenItself(const Resolved& place, At at) {
    TX_TRY_ASSIGN(UniqueFd fd, OpenAt(at, O_RDONLY | O_DIRECTORY | O_NOFOLLOW));
    if (!place.around) return fd;
    TX_TRY_ASSIGN(const auto st, StatOf(fd.Get()));
    if (!IsSameObject(st, *place.st)) return std::unexpected(ESTALE);
    return fd;
}

Sys<UniqueFd> OpenItself(const Resolved& place) {
    if (place.around) return OpenItself(place, At{place.around->Get(), place.NameText()});
    TX_TRY_ASSIGN(const Location location, Locate(place.native));
    return OpenItself(place, location);
}

bool IsFolder(const Resolved& place) {
    return place.Exists() && S_ISDIR(place.st->stx_mode);
}

// What a folder copy goes into: the folder that is there, or else the one around it.
Result<UniqueFd> OpenNearest(const Resolved& target, std::string_view path) {
    if (!IsFolder(target)) return OpenFolderOf(target, path);
    return Named(OpenItself(target), path);
}

Result<UniqueFd> MakeTarget(int outer, const Resolved& target, std::string_view path) {
    const std::string name(target.NativeName());
    if (::mkdirat(outer, name.c_str(), 0700) != 0) return FailureOf(errno, path);
    return Named(OpenAt({outer, name.c_str()}, O_RDONLY | O_DIRECTORY | O_NOFOLLOW), path);
}
} // namespace

Result<void> LinuxFileSystem::CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                       const CopyObserver& observer) {
    TX_TRY_ASSIGN(const Resolved source, resolver_.File(from));
    if (IsSpecial(*source.st)) return FailureBy(kPathFileAccess, from);
    TX_TRY_ASSIGN(const Resolved target,
                  overwrite ? resolver_.Target(to) : resolver_.NewTarget(to));
    return Copy(source, target, from, to, overwrite, observer);
}

Result<void> LinuxFileSystem::CopyFileTo(const Look& from, const FreePlace& to,
                                         const CopyObserver& observer) {
    TX_TRY_ASSIGN(const auto source, SourceOf(from));
    if (IsSpecial(*source->st)) return FailureBy(kPathFileAccess, from.path);
    TX_TRY_ASSIGN(const auto target, TargetOf(to));
    return Copy(*source, *target, from.path, to.path, false, observer);
}

Result<void> LinuxFileSystem::Copy(const Resolved& source, const Resolved& target,
                                   std::string_view from, std::string_view to, bool overwrite,
                                   const CopyObserver& observer) {
    if (target.Exists()) {
        TX_TRY(CheckReplace(*source.st, *target.st, LeadsToFolder(target), overwrite, to));
    }
    CopyRun run(observer, roads_, overwrite);
    run.ahead = Ahead();
    return CopyOne(source, target, from, to, run);
}

Result<void> LinuxFileSystem::CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                                         const CopyObserver& observer) {
    TX_TRY_ASSIGN(const Resolved source, resolver_.Folder(from));
    if (!S_ISDIR(source.st->stx_mode)) return CopyFile(from, to, overwrite, observer);
    TX_TRY_ASSIGN(const Resolved target, resolver_.Target(to));
    return CopyFolder(source, target, from, to, overwrite, observer);
}

Result<void> LinuxFileSystem::CopyFolderTo(const Look& from, const FreePlace& to,
                                           const CopyObserver& observer) {
    TX_TRY_ASSIGN(const auto source, FolderOf(from));
    if (!S_ISDIR(source->st->stx_mode)) return CopyFileTo(from, to, observer);
    TX_TRY_ASSIGN(const Resolved target, resolver_.Target(to.path));
    if (target.Exists()) return FailureBy(kAlreadyExists, to.path);
    return CopyFolder(*source, target, from.path, to.path, false, observer);
}

Result<void> LinuxFileSystem::CopyFolder(const Resolved& source, const Resolved& target,
                                         std::string_view from, std::string_view to, bool overwrite,
                                         const CopyObserver& observer) {
    TX_TRY_ASSIGN(UniqueFd nearest, OpenNearest(target, to));
    if (IsWithin(nearest.Get(), *source.st)) return FailureBy(kPathFileAccess, to);
    if (target.Exists() && !IsFolder(target)) {
        return FailureBy(overwrite ? kPathFileAccess : kAlreadyExists, to);
    }
    auto opened = OpenItself(source);
    if (!opened && opened.error() == ESTALE) return FailureBy(kChangedSinceSearch, from);
    TX_TRY_ASSIGN(UniqueFd in, Named(std::move(opened), from));
    UniqueFd out = std::move(nearest);
    if (!target.Exists()) {
        TX_TRY_ASSIGN(out, MakeTarget(out.Get(), target, to));
    }
    NoteMade(target);
    store_.Forget(target.native);
    CopyRun run(observer, roads_, overwrite);
    run.ahead = Ahead();
    if (run.IsObserved()) {
        auto again = OpenItself(source);
        if (again) run.SetTotal(SizeOfTree(std::move(*again), *source.drives));
    }
    FolderCopier copier(run, *source.drives, from, to);
    return copier.Copy(std::move(in), std::move(out), !target.Exists());
}

void LinuxFileSystem::CopySoon(std::span<const PlannedCopy> copies) {
    if (Ahead() == nullptr) return;
    std::vector<AheadItem> items;
    std::string_view folder;
    std::shared_ptr<UniqueFd> target;
    for (const PlannedCopy& copy : copies.first(std::min(copies.size(), kMostPlanned))) {
        if (target == nullptr || folder != copy.toFolder) {
            folder = copy.toFolder;
            const auto place = resolver_.ByText(folder);
            if (!place || !IsLocal(*place)) continue;
            auto opened = OpenAt({AT_FDCWD, place->native.c_str()}, O_PATH | O_DIRECTORY);
            target = std::make_shared<UniqueFd>(opened ? std::move(*opened) : UniqueFd());
        }
        if (*target) items.push_back({std::string(copy.from), nullptr, {}, target});
    }
    ahead_.Replace(std::move(items));
}

bool LinuxFileSystem::FindAhead(AheadItem& item) const {
    auto source = resolver_.ByText(item.key);
    if (!source || !IsLocal(*source) || source->native.size() >= PATH_MAX) return false;
    item.source = std::move(source->native);
    return true;
}

Result<void> LinuxFileSystem::CopyOne(const Resolved& source, const Resolved& target,
                                      std::string_view from, std::string_view to, CopyRun& run) {
    TX_TRY_ASSIGN(const Location in, Named(LocationOf(source, store_), from));
    TX_TRY_ASSIGN(const Location out, Named(store_.Locate(target.native), to));
    if (S_ISREG(source.st->stx_mode)) run.SetTotal(source.st->stx_size);
    const At at = out;
    const bool isSeen = source.around != nullptr;
    auto copied = CopyObject({in, *source.st, from, at.folder, at.name, to, isSeen}, run);
    if (copied) target.Exists() ? NoteChanged() : NoteMade(target);
    // Others were faster than what is known of the folder.
    if (!copied && copied.error().number == kAlreadyExists) store_.Forget(target.Folder());
    return copied;
}

} // namespace tarvix::platform
