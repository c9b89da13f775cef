#include "platform/linux/native_facts.h"

#include <array>
#include <bit>
#include <cstring>
#include <fcntl.h>
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/xattr.h>

namespace tarvix::platform {

namespace {
constexpr std::uint64_t kBlock = 4096;
constexpr std::uint32_t kSettable = kReadOnly | kHidden | kSystem | kArchive;
constexpr std::uint32_t kFromDos =
    kSettable | kSparse | kCompressed | kEncrypted; // what is believed of them

constexpr const char* kNtfsName = "system.ntfs_attrib_be";
constexpr std::array<const char*, 2> kCifsNames{"user.cifs.dosattrib", "user.smb3.dosattrib"};

std::uint32_t BigEndian(std::uint32_t value) {
    return std::endian::native == std::endian::little ? __builtin_bswap32(value) : value;
}

std::optional<std::uint32_t> ReadNumber(int fd, const char* name) {
    std::uint32_t value = 0;
    if (::fgetxattr(fd, name, &value, sizeof value) != sizeof value) return std::nullopt;
    return value;
}

void WriteNumber(int fd, const char* name, std::uint32_t value) {
    // What can't be held is no error.
    if (::fsetxattr(fd, name, &value, sizeof value, XATTR_REPLACE) != 0) return;
}

bool HasHoles(At at) {
    const auto fd = OpenAt(at, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (!fd) return false;
    const off_t hole = ::lseek(fd->Get(), 0, SEEK_HOLE);
    const off_t end = hole < 0 ? hole : ::lseek(fd->Get(), 0, SEEK_END);
    return hole >= 0 && hole < end;
}

std::uint32_t KindBits(const struct statx& st, At at) {
    if (S_ISDIR(st.stx_mode)) return kFolder;
    if (S_ISREG(st.stx_mode)) return kArchive;
    if (!S_ISLNK(st.stx_mode)) return kArchive | kSpecial;
    const auto behind = StatBehind(at);
    return behind && S_ISDIR(behind->stx_mode) ? kAlias | kFolder : kAlias | kArchive;
}

std::uint32_t StorageBits(const struct statx& st, At at) {
    std::uint32_t bits = 0;
    if ((st.stx_attributes & STATX_ATTR_COMPRESSED) != 0) bits |= kCompressed;
    if ((st.stx_attributes & STATX_ATTR_ENCRYPTED) != 0) bits |= kEncrypted;
    if (MayHaveHoles(st) && HasHoles(at)) bits |= kSparse;
    return bits;
}

// A time in steps of kListedTimeStep.
std::int64_t ListedStep(const struct statx_timestamp& stamp) {
    const FileTime time = TimeOf(stamp);
    return static_cast<std::int64_t>(time / kListedTimeStep - (time % kListedTimeStep < 0 ? 1 : 0));
}

// Bits from the file system's own DOS attributes in the place of those worked out.
std::uint32_t WithDosBits(std::uint32_t bits, DosAttributes kind, At at) {
    if ((bits & (kAlias | kSpecial)) != 0) return bits;
    const auto fd = OpenAt(at, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    const auto dos = fd ? ReadDosAttributes(kind, fd->Get()) : std::nullopt;
    if (!dos) return bits;
    bits &= ~std::uint32_t{kArchive};
    return bits | (*dos & ((bits & kFolder) != 0 ? kFromDos & ~kArchive : kFromDos));
}
} // namespace

bool IsReadOnly(const struct statx& st) {
    if (S_ISLNK(st.stx_mode)) return false;
    return (st.stx_mode & S_IWUSR) == 0 || (st.stx_attributes & STATX_ATTR_IMMUTABLE) != 0;
}

bool IsSpecial(const struct statx& st) {
    return !S_ISREG(st.stx_mode) && !S_ISDIR(st.stx_mode) && !S_ISLNK(st.stx_mode);
}

bool MayHaveHoles(const struct statx& st) {
    return S_ISREG(st.stx_mode) && st.stx_size > kBlock && st.stx_blocks < st.stx_size / 512;
}

namespace {
std::uint32_t AttributesFrom(const struct statx& st, std::string_view name, At at,
                             const DriveTable& drives) {
    std::uint32_t bits = KindBits(st, at) | StorageBits(st, at);
    if (IsReadOnly(st)) bits |= kReadOnly;
    const DosAttributes kind = drives.DosAttributesAt(DeviceOf(st));
    if (kind != DosAttributes::kNone) bits = WithDosBits(bits, kind, at);
    if (name.starts_with('.')) bits |= kHidden;
    return bits;
}

std::uint64_t SizeFrom(const struct statx& st) {
    return S_ISREG(st.stx_mode) ? st.stx_size : 0;
}

std::uint64_t InodeFrom(const struct statx& st, std::uint64_t device, const DriveTable& drives) {
    return drives.KeepsNumbersAt(device) ? st.stx_ino : 0;
}
} // namespace

ObjectFacts FactsFrom(const struct statx& st, std::string_view name, At at,
                      const DriveTable& drives) {
    const std::uint64_t device = DeviceOf(st);
    ObjectFacts facts;
    facts.attributes = AttributesFrom(st, name, at, drives);
    facts.size = SizeFrom(st);
    facts.modified = TimeOf(st.stx_mtime);
    facts.accessed = TimeOf(st.stx_atime);
    if ((st.stx_mask & STATX_BTIME) != 0) facts.created = TimeOf(st.stx_btime);
    facts.identity = {device, InodeFrom(st, device, drives), TimeOf(st.stx_ctime)};
    return facts;
}

BriefFacts BriefFrom(const struct statx& st, std::string_view name, At at,
                     const DriveTable& drives) {
    const std::uint64_t device = DeviceOf(st);
    return {.size = SizeFrom(st),
            .device = device,
            .inode = InodeFrom(st, device, drives),
            .changed = ListedStep(st.stx_ctime),
            .modified = st.stx_mtime.tv_sec,
            .created = (st.stx_mask & STATX_BTIME) != 0 ? st.stx_btime.tv_sec : kNoSeconds,
            .accessed = st.stx_atime.tv_sec,
            .attributes = AttributesFrom(st, name, at, drives),
            .isKnown = true};
}

std::optional<std::uint32_t> ReadDosAttributes(DosAttributes kind, int fd) {
    if (kind == DosAttributes::kFat) {
        std::uint32_t value = 0;
        if (::ioctl(fd, FAT_IOCTL_GET_ATTRIBUTES, &value) != 0) return std::nullopt;
        return value;
    }
    if (kind == DosAttributes::kNtfs) {
        const auto value = ReadNumber(fd, kNtfsName);
        return value ? std::optional(BigEndian(*value)) : std::nullopt;
    }
    for (const char* name : kCifsNames) {
        if (const auto value = ReadNumber(fd, name)) return value;
    }
    return std::nullopt;
}

void WriteDosAttributes(DosAttributes kind, int fd, std::uint32_t attributes) {
    const auto held = ReadDosAttributes(kind, fd);
    if (!held) return;
    std::uint32_t value = (*held & ~kSettable) | (attributes & kSettable);
    if (value == *held) return;
    if (kind == DosAttributes::kFat) {
        // What can't be held is no error.
        if (::ioctl(fd, FAT_IOCTL_SET_ATTRIBUTES, &value) != 0) return;
    } else if (kind == DosAttributes::kNtfs) {
        WriteNumber(fd, kNtfsName, BigEndian(value));
    } else {
        for (const char* name : kCifsNames)
            WriteNumber(fd, name, value);
    }
}

} // namespace tarvix::platform
