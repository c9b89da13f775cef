#include "platform/linux/linux_file_system.h"
#include "platform/linux/native_facts.h"
#include "platform/try.h"

#include <fmt/core.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr unsigned kPermissions = 07777;
constexpr unsigned kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

unsigned ModeWith(unsigned mode, std::uint32_t attributes) {
    mode &= kPermissions;
    return (attributes & kReadOnly) != 0 ? mode & ~kAnyWrite : mode | S_IWUSR;
}

// Only where a file system keeps such attributes.
void SetDosAttributes(const Resolved& place, At at, std::uint32_t attributes) {
    const DosAttributes kind = place.Drives().DosAttributesAt(DeviceOf(*place.st));
    if (kind == DosAttributes::kNone) return;
    const auto fd = OpenAt(at, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (fd) WriteDosAttributes(kind, fd->Get(), attributes);
}

Sys<void> SetMode(At at, unsigned mode) {
    if (::fchmodat(at.folder, at.name, mode, 0) != 0) return std::unexpected(errno);
    return {};
}

// Of that very object, whatever may bear its name by now.
Sys<void> SetModeOf(const Resolved& place, At at, unsigned mode) {
    if (!place.around) return SetMode(at, mode);
    TX_TRY_ASSIGN(const UniqueFd fd, OpenAt(at, O_PATH | O_NOFOLLOW));
    TX_TRY_ASSIGN(const auto st, StatOf(fd.Get()));
    if (!IsSameObject(st, *place.st)) return std::unexpected(ESTALE);
    return SetMode({AT_FDCWD, fmt::format("/proc/self/fd/{}", fd.Get()).c_str()}, mode);
}

// The object itself in the moment before it goes.
Result<void> CheckStands(const Resolved& place, At at, std::string_view path) {
    if (!place.around || !place.Drives().KeepsNumbersAt(DeviceOf(*place.st))) return {};
    TX_TRY_ASSIGN(const auto st, Named(StatOf(at), path));
    if (!IsSameObject(st, *place.st)) return FailureBy(kChangedSinceSearch, path);
    return {};
}

Sys<void> Unlink(At at, int flags = 0) {
    if (::unlinkat(at.folder, at.name, flags) != 0) return std::unexpected(errno);
    return {};
}

// Some file systems keep a read-only file from being deleted; its mark is put back if it stays.
Sys<void> UnlinkReadOnly(At at, unsigned mode) {
    auto gone = Unlink(at);
    if (gone || (gone.error() != EACCES && gone.error() != EPERM)) return gone;
    if (!SetMode(at, (mode & kPermissions) | S_IWUSR)) return gone;
    gone = Unlink(at);
    if (!gone) static_cast<void>(SetMode(at, mode & kPermissions));
    return gone;
}
} // namespace

Result<void> LinuxFileSystem::SetAttributes(std::string_view path, std::uint32_t attributes) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.Existing(path));
    return SetAttributes(place, path, attributes);
}

Result<void> LinuxFileSystem::SetAttributesOf(const Look& object, std::uint32_t attributes) {
    Resolved anew;
    TX_TRY_ASSIGN(const auto* const place, ObjectOf(object, anew));
    return SetAttributes(*place, object.path, attributes);
}

Result<void> LinuxFileSystem::SetAttributes(const Resolved& place, std::string_view path,
                                            std::uint32_t attributes) {
    if (S_ISLNK(place.st->stx_mode)) return {};
    TX_TRY_ASSIGN(const Location location, Named(LocationOf(place, store_), path));
    if (!IsSpecial(*place.st)) SetDosAttributes(place, location, attributes);
    const unsigned mode = ModeWith(place.st->stx_mode, attributes);
    const bool isWritable = (place.st->stx_mode & S_IWUSR) != 0;
    const bool shallBeWritable = (mode & S_IWUSR) != 0;
    NoteChanged();
    if (isWritable == shallBeWritable) return {};
    const auto set = SetModeOf(place, location, mode);
    if (!set && set.error() == ESTALE) return FailureBy(kChangedSinceSearch, path);
    if (!set && set.error() != EOPNOTSUPP) return FailureOf(set.error(), path);
    return {};
}

Result<void> LinuxFileSystem::DeleteFile(std::string_view path, bool force) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.File(path));
    return DeleteFile(place, path, force);
}

Result<void> LinuxFileSystem::DeleteFileOf(const Look& object, bool force) {
    Resolved anew;
    TX_TRY_ASSIGN(const auto* const place, SourceOf(object, anew));
    return DeleteFile(*place, object.path, force);
}

Result<void> LinuxFileSystem::DeleteFile(const Resolved& place, std::string_view path, bool force) {
    const bool isReadOnly = IsReadOnly(*place.st);
    if (isReadOnly && !force) return FailureBy(kPermissionDenied, path);
    TX_TRY_ASSIGN(const Location location, Named(LocationOf(place, store_), path));
    TX_TRY(CheckStands(place, location, path));
    const auto gone = isReadOnly ? UnlinkReadOnly(location, place.st->stx_mode) : Unlink(location);
    if (!gone) return FailureOf(gone.error(), path);
    NoteGone(place);
    return {};
}

Result<void> LinuxFileSystem::RemoveFolder(std::string_view path) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.Folder(path));
    return RemoveFolder(place, path);
}

Result<void> LinuxFileSystem::RemoveFolderOf(const Look& object) {
    Resolved anew;
    TX_TRY_ASSIGN(const auto* const place, FolderOf(object, anew));
    return RemoveFolder(*place, object.path);
}

Result<void> LinuxFileSystem::RemoveFolder(const Resolved& place, std::string_view path) {
    if (!S_ISDIR(place.st->stx_mode) || place.IsRoot()) {
        return FailureBy(kPathFileAccess, path);
    }
    TX_TRY_ASSIGN(const Location location, Named(LocationOf(place, store_), path));
    TX_TRY(CheckStands(place, location, path));
    const auto gone = Unlink(location, AT_REMOVEDIR);
    if (!gone && gone.error() == EEXIST) return FailureBy(kPathFileAccess, path);
    if (!gone) return FailureOf(gone.error(), path);
    NoteGone(place);
    return {};
}

Result<void> LinuxFileSystem::CreateFolder(std::string_view path) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.NewTarget(path));
    if (place.Exists()) return FailureBy(kPathFileAccess, path);
    TX_TRY_ASSIGN(const Location location, Named(store_.Locate(place.native), path));
    const At at = location;
    if (::mkdirat(at.folder, at.name, 0777) != 0) {
        const int error = errno;
        store_.Forget(place.Folder());
        if (error == EEXIST) return FailureBy(kPathFileAccess, path);
        if (error == ENOENT) return FailureBy(kPathNotFound, path);
        return FailureOf(error, path);
    }
    ++makes_;
    store_.NoteFolderMade(place.native);
    return {};
}

} // namespace tarvix::platform
