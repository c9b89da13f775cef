#include "platform/linux/file_copier.h"
#include "platform/linux/folder_copier.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/part_file.h"
#include "platform/try.h"
#include "text/case.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
bool HasSameFolder(const Resolved& a, const Resolved& b) {
    if (a.Folder() == b.Folder()) return true;
    const auto ofA = StatBehindPath(std::string(a.Folder()));
    const auto ofB = StatBehindPath(std::string(b.Folder()));
    return ofA && ofB && IsSameObject(*ofA, *ofB);
}

// Whether the target is the source under its own name in another case.
bool IsCaseChange(const Resolved& source, const Resolved& target) {
    return target.Exists() && IsSameObject(*source.st, *target.st) &&
           source.NativeName() != target.WantedName() &&
           text::EqualNoCase(source.NativeName(), target.WantedName()) &&
           HasSameFolder(source, target);
}

Sys<void> RenameOver(At from, At to) {
    if (::renameat(from.folder, from.name, to.folder, to.name) != 0) {
        return std::unexpected(errno);
    }
    return {};
}

// By its true path, since that is how mounts are known.
bool HoldsMount(const Resolved& folder) {
    struct Free {
        void operator()(char* text) const { std::free(text); }
    };
    const std::unique_ptr<char, Free> real(::realpath(folder.native.c_str(), nullptr));
    return real != nullptr && folder.Drives().HoldsMount(real.get());
}

void RemoveIfPresent(const Resolved& place) {
    const auto location = Locate(place.native);
    if (!location) return;
    const At at = *location;
    ::unlinkat(at.folder, at.name, 0);
}
} // namespace

bool LinuxFileSystem::IsTaken(const Resolved& source, const Resolved& target) {
    if (!target.Exists()) return false;
    if (!IsCaseChange(source, target)) return true;
    return store_.HasOther(target.Folder(), target.WantedName(), source.NativeName());
}

Sys<void> LinuxFileSystem::Rename(const Resolved& source, const Resolved& target,
                                  std::string_view native, const Sys<Location>& to) {
    if (!to) return std::unexpected(to.error());
    TX_TRY_ASSIGN(const Location from, LocationOf(source, store_));
    const bool isFolder = S_ISDIR(source.st->stx_mode);
    // Where both names lead to the one object, only a plain rename can change its case.
    const bool isOneName = source.Drives().FoldsCaseAt(DeviceOf(*source.st)) && target.Exists();
    auto renamed = isOneName ? RenameOver(from, *to) : RenameReadOnly(from, *to, isFolder, roads_);
    if (!renamed) {
        // Others were faster than what is known of the folder.
        if (renamed.error() == EEXIST) store_.Forget(target.Folder());
        return renamed;
    }
    NoteRenamed(source, native);
    return {};
}

Result<void> LinuxFileSystem::MoveFile(std::string_view from, std::string_view to,
                                       const CopyObserver& observer) {
    TX_TRY_ASSIGN(const Resolved source, resolver_.File(from));
    TX_TRY_ASSIGN(const Resolved target, resolver_.NewTarget(to));
    return Move(source, target, from, to, observer);
}

Result<void> LinuxFileSystem::MoveFileTo(const Look& from, const FreePlace& to,
                                         const CopyObserver& observer) {
    Resolved sourceAnew;
    Resolved targetAnew;
    TX_TRY_ASSIGN(const auto* const source, SourceOf(from, sourceAnew));
    TX_TRY_ASSIGN(const auto* const target, TargetOf(to, targetAnew));
    return Move(*source, *target, from.path, to.path, observer);
}

Result<void> LinuxFileSystem::Move(const Resolved& source, const Resolved& target,
                                   std::string_view from, std::string_view to,
                                   const CopyObserver& observer) {
    if (IsTaken(source, target)) return FailureOf(EEXIST, to);
    std::string other;
    const std::string& wanted = target.WantedPath(other);
    const auto place = NewLocation(source, target, wanted);
    const auto renamed = Rename(source, target, wanted, place);
    if (renamed) return CheckMoved(source, target, *place, from, to);
    if (renamed.error() == EXDEV && source.around) {
        return MoveAcross(source, target, from, to, observer);
    }
    if (renamed.error() == EXDEV) {
        TX_TRY_ASSIGN(const Resolved now, resolver_.File(from));
        return MoveAcross(now, target, from, to, observer);
    }
    if (renamed.error() == ENOENT && IsGone(source)) return FailureBy(kFileNotFound, from);
    if (renamed.error() == ENOENT) return FailureBy(kPathNotFound, to);
    return FailureOf(renamed.error(), to);
}

// What was there when it was looked at.
bool LinuxFileSystem::IsGone(const Resolved& source) {
    const auto location = LocationOf(source, store_);
    const auto st = location ? StatOf(At(*location)) : Sys<struct statx>(std::unexpected(ENOENT));
    return !st && st.error() == ENOENT;
}

// The copy lies safe on its disk before the source goes; whatever fails, the source stays.
Result<void> LinuxFileSystem::MoveAcross(const Resolved& source, const Resolved& target,
                                         std::string_view from, std::string_view to,
                                         const CopyObserver& observer) {
    CopyRun run(observer, roads_, false);
    run.sync = true;
    TX_TRY(CopyOne(source, target, from, to, run));
    TX_TRY_ASSIGN(const Location location, Named(LocationOf(source, store_), from));
    const At at = location;
    int error = IsUnchanged(*source.st, at) ? 0 : EBUSY;
    if (error == 0 && ::unlinkat(at.folder, at.name, 0) != 0) error = errno;
    if (error == 0) {
        NoteGone(source);
        return {};
    }
    if (StatOf(at)) {
        RemoveIfPresent(target);
        NoteGone(target);
    }
    return FailureOf(error, from);
}

Result<void> LinuxFileSystem::MoveFolder(std::string_view from, std::string_view to) {
    TX_TRY_ASSIGN(const Resolved source, resolver_.Folder(from));
    TX_TRY_ASSIGN(const Resolved target, resolver_.Target(to));
    return MoveFolder(source, target, from, to);
}

Result<void> LinuxFileSystem::MoveFolderTo(const Look& from, const FreePlace& to) {
    Resolved sourceAnew;
    Resolved targetAnew;
    TX_TRY_ASSIGN(const auto* const source, FolderOf(from, sourceAnew));
    TX_TRY_ASSIGN(const auto* const target, TargetOf(to, targetAnew));
    return MoveFolder(*source, *target, from.path, to.path);
}

Result<void> LinuxFileSystem::MoveFolder(const Resolved& source, const Resolved& target,
                                         std::string_view from, std::string_view to) {
    if (source.IsRoot()) return FailureBy(kPermissionDenied, from);
    if (target.IsRoot()) return FailureOf(EEXIST, to);
    TX_TRY_ASSIGN(const UniqueFd outer, OpenFolderOf(target, to));
    if (IsWithin(outer.Get(), *source.st)) return IntoItselfFailure(from, to);
    if (IsTaken(source, target)) return FailureOf(EEXIST, to);
    std::string other;
    const std::string& wanted = target.WantedPath(other);
    const auto place = NewLocation(source, target, wanted);
    const auto renamed = Rename(source, target, wanted, place);
    if (renamed) return CheckMoved(source, target, *place, from, to);
    if (renamed.error() == EINVAL) return IntoItselfFailure(from, to);
    if (renamed.error() == EXDEV && HoldsMount(source)) return HoldsMountFailure(from);
    if (renamed.error() == ENOTEMPTY) return FailureOf(EEXIST, to);
    if (renamed.error() == ENOENT) return FailureBy(kPathNotFound, to);
    return FailureOf(renamed.error(), to);
}

} // namespace tarvix::platform
