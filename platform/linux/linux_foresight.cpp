#include "platform/linux/linux_foresight.h"

#include "platform/try.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/magic.h>
#include <string>
#include <sys/vfs.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {

// Not in the system's headers.
constexpr std::uint32_t kXfs = 0x58465342;
constexpr std::uint32_t kZfs = 0x2FC12FC1;
constexpr std::uint32_t kBcachefs = 0xCA451A4E;

Sys<void> CheckAccess(const std::string& native, int rights) {
    TX_TRY_ASSIGN(const Location location, Locate(native));
    const At at = location;
    if (::faccessat(at.folder, at.name, rights, AT_EACCESS) != 0) return std::unexpected(errno);
    return {};
}

bool HasAttribute(const struct statx& st, std::uint64_t attribute) {
    return (st.stx_attributes & attribute) != 0;
}

// In a folder such as /tmp only its owner and that of an object may take the object away.
bool IsKeptForOwners(const struct statx& folder, const struct statx& object) {
    const uid_t user = ::geteuid();
    return (folder.stx_mode & S_ISVTX) != 0 && user != 0 && user != folder.stx_uid &&
           user != object.stx_uid;
}

Sys<void> CheckTake(const Resolved& place) {
    const std::string folder(place.Folder());
    TX_TRY(CheckAccess(folder, W_OK | X_OK));
    TX_TRY_ASSIGN(const struct statx around, StatBehindPath(folder));
    const bool isKept = HasAttribute(*place.st, STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND) ||
                        HasAttribute(around, STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND) ||
                        IsKeptForOwners(around, *place.st);
    if (isKept) return std::unexpected(EPERM);
    return {};
}

bool PacksContent(std::uint32_t type) {
    return type == BTRFS_SUPER_MAGIC || type == kZfs || type == SQUASHFS_MAGIC;
}

bool MayShareBlocks(std::uint32_t type) {
    return type == kXfs || type == kBcachefs || type == OVERLAYFS_SUPER_MAGIC;
}

} // namespace

Result<void> LinuxForesight::MayRead(std::string_view path) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.Existing(path));
    if (S_ISLNK(place.st->stx_mode)) return {};
    return Named(CheckAccess(place.native, R_OK), path);
}

Result<void> LinuxForesight::MayAddTo(std::string_view folder) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.Folder(folder));
    TX_TRY(Named(CheckAccess(place.native, W_OK | X_OK), folder));
    if (HasAttribute(*place.st, STATX_ATTR_IMMUTABLE)) return FailureOf(EPERM, folder);
    return {};
}

Result<void> LinuxForesight::MayTake(std::string_view path) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.Existing(path));
    if (place.IsRoot()) return FailureBy(kPermissionDenied, path);
    return Named(CheckTake(place), path);
}

std::optional<DiskRoom> LinuxForesight::RoomIn(std::string_view folder) {
    const auto place = resolver_.Folder(folder);
    if (!place) return std::nullopt;
    const auto location = Locate(place->native);
    const auto opened = location ? OpenAt(*location, O_PATH | O_DIRECTORY) : std::unexpected(EIO);
    if (!opened) return std::nullopt;
    struct statfs disk {};
    const auto st = StatOf(opened->Get());
    if (!st || ::fstatfs(opened->Get(), &disk) != 0) return std::nullopt;
    const auto type = static_cast<std::uint32_t>(disk.f_type);
    // Where no blocks are counted the figure means nothing.
    if (disk.f_blocks == 0 || PacksContent(type)) return std::nullopt;
    const auto blocks = ::geteuid() == 0 ? disk.f_bfree : disk.f_bavail;
    return DiskRoom{DeviceOf(*st), blocks * static_cast<std::uint64_t>(disk.f_bsize),
                    MayShareBlocks(type)};
}

} // namespace tarvix::platform
