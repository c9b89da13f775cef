#include "platform/linux/file_copier.h"
#include "platform/linux/folder_copier.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/part_file.h"
#include "text/case.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
bool HasSameFolder(const Place& a, const Place& b) {
    if (a.Folder() == b.Folder()) return true;
    const auto ofA = StatBehindPath(std::string(a.Folder()));
    const auto ofB = StatBehindPath(std::string(b.Folder()));
    return ofA && ofB && IsSameObject(*ofA, *ofB);
}

// Whether the target is the source under its own name in another case.
bool IsCaseChange(const Place& source, const Place& target) {
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

// The native path with the name that was asked for, where an object of another case was found.
std::string WantedPath(const Place& target) {
    std::string native = target.native;
    if (!target.otherName.empty())
        native.replace(native.rfind('/') + 1, native.npos, target.otherName);
    return native;
}

void RemoveIfPresent(const Place& place) {
    const auto location = Locate(place.native);
    if (!location) return;
    const At at = *location;
    ::unlinkat(at.folder, at.name, 0);
}
} // namespace

bool LinuxFileSystem::IsTaken(const Place& source, const Place& target) {
    if (!target.Exists()) return false;
    if (!IsCaseChange(source, target)) return true;
    return names_.HasOther(target.Folder(), target.WantedName(), source.NativeName());
}

Sys<void> LinuxFileSystem::Rename(const Place& source, const Place& target) {
    const std::string wanted = WantedPath(target);
    const auto from = Locate(source.native);
    if (!from) return std::unexpected(from.error());
    const auto to = Locate(wanted);
    if (!to) return std::unexpected(to.error());
    const bool isFolder = S_ISDIR(source.st->stx_mode);
    // Where both names lead to the one object, only a plain rename can change its case.
    const bool isOneName = source.drives->FoldsCaseAt(DeviceOf(*source.st)) && target.Exists();
    auto renamed =
        isOneName ? RenameOver(*from, *to) : RenameWithoutReplacing(*from, *to, isFolder, roads_);
    if (!renamed) {
        // Others were faster than what is known of the folder.
        if (renamed.error() == EEXIST) names_.Forget(target.Folder());
        return renamed;
    }
    NoteRenamed(source, target);
    return {};
}

Result<void> LinuxFileSystem::MoveFile(std::string_view from, std::string_view to,
                                       const CopyObserver& observer) {
    const auto source = FileLookedAt(from);
    if (!source) return std::unexpected(source.error());
    const auto target = NewTarget(to);
    if (!target) return std::unexpected(target.error());
    if (IsTaken(*source, *target)) return FailureOf(EEXIST, to);
    const auto renamed = Rename(*source, *target);
    if (renamed) return {};
    if (renamed.error() == EXDEV) {
        const auto now = resolver_.File(from);
        return now ? MoveAcross(*now, *target, from, to, observer) : std::unexpected(now.error());
    }
    if (renamed.error() == ENOENT) return FailureBy(kPathNotFound, to);
    return FailureOf(renamed.error(), to);
}

// The copy lies safe on its disk before the source goes; whatever fails, the source stays.
Result<void> LinuxFileSystem::MoveAcross(const Place& source, const Place& target,
                                         std::string_view from, std::string_view to,
                                         const CopyObserver& observer) {
    CopyRun run(observer, roads_, false);
    run.sync = true;
    auto copied = CopyOne(source, target, from, to, run);
    if (!copied) return copied;
    const auto location = Locate(source.native);
    if (!location) return FailureOf(location.error(), from);
    const At at = *location;
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
    const auto source = resolver_.Folder(from);
    if (!source) return std::unexpected(source.error());
    const auto target = resolver_.Target(to);
    if (!target) return std::unexpected(target.error());
    if (source->IsRoot()) return FailureBy(kPermissionDenied, from);
    if (target->IsRoot()) return FailureOf(EEXIST, to);
    const auto outer = OpenFolderOf(*target, to);
    if (!outer) return std::unexpected(outer.error());
    if (IsWithin(outer->Get(), *source->st)) return FailureBy(kPathFileAccess, to);
    if (IsTaken(*source, *target)) return FailureOf(EEXIST, to);
    const auto renamed = Rename(*source, *target);
    if (renamed) return {};
    if (renamed.error() == EINVAL) return FailureBy(kPathFileAccess, to);
    if (renamed.error() == ENOTEMPTY) return FailureOf(EEXIST, to);
    if (renamed.error() == ENOENT) return FailureBy(kPathNotFound, to);
    return FailureOf(renamed.error(), to);
}

} // namespace tarvix::platform
