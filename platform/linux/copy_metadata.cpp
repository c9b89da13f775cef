#include "platform/linux/copy_content.h"

#include <array>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/xattr.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr unsigned kPermissions = 07777;
constexpr std::size_t kMostBytes = 65536; // what the system allows for all names, and for a value
constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kDefaultList = "system.posix_acl_default";

timespec AsTimespec(const struct statx_timestamp& stamp) {
    return {static_cast<time_t>(stamp.tv_sec), static_cast<long>(stamp.tv_nsec)};
}

// Attributes that some file systems make up for what is copied otherwise.
bool IsMadeUp(std::string_view name) {
    return name.starts_with("user.cifs.") || name.starts_with("user.smb3.") ||
           name.starts_with("system.ntfs_") || name.starts_with("system.cifs");
}

void CopyOne(int in, int out, const char* name) {
    static thread_local const auto value = std::make_unique<char[]>(kMostBytes);
    const ssize_t size = ::fgetxattr(in, name, value.get(), kMostBytes);
    // What can't be held there is no failure.
    if (size >= 0 && ::fsetxattr(out, name, value.get(), static_cast<std::size_t>(size), 0) != 0) {
        return;
    }
}

struct Lists {
    bool access = false;
    bool preset = false;
};

Lists CopyNamed(int in, int out, std::string_view names) {
    Lists lists;
    while (!names.empty()) {
        const std::string_view name(names.data());
        names.remove_prefix(std::min(name.size() + 1, names.size()));
        lists.access |= name == kAccessList;
        lists.preset |= name == kDefaultList;
        if (!IsMadeUp(name)) CopyOne(in, out, name.data());
    }
    return lists;
}

Lists CopyExtendedAttributes(int in, int out) {
    std::array<char, 1024> few;
    const ssize_t size = ::flistxattr(in, few.data(), few.size());
    if (size == 0) return {};
    if (size > 0) return CopyNamed(in, out, {few.data(), static_cast<std::size_t>(size)});
    const auto many = std::make_unique<char[]>(kMostBytes);
    const ssize_t all = ::flistxattr(in, many.get(), kMostBytes);
    return all > 0 ? CopyNamed(in, out, {many.get(), static_cast<std::size_t>(all)}) : Lists();
}

// Takes away the access lists that the new object got from the folder it was made in.
void RemoveInherited(int out, Lists copied, bool isFolder) {
    if (!copied.access && ::fgetxattr(out, kAccessList, nullptr, 0) > 0) {
        ::fremovexattr(out, kAccessList);
    }
    if (isFolder && !copied.preset && ::fgetxattr(out, kDefaultList, nullptr, 0) > 0) {
        ::fremovexattr(out, kDefaultList);
    }
}

struct Kept {
    bool owner = true;
    bool group = true;
};

Kept KeepOwner(int out, const struct stat& made, const struct statx& st) {
    if (made.st_uid == st.stx_uid && made.st_gid == st.stx_gid) return {};
    if (::fchown(out, st.stx_uid, st.stx_gid) == 0) return {};
    // The group alone may be allowed.
    const bool keepsGroup = ::fchown(out, static_cast<uid_t>(-1), st.stx_gid) == 0;
    return {made.st_uid == st.stx_uid, keepsGroup || made.st_gid == st.stx_gid};
}
} // namespace

bool CopyMetadata(int in, int out, const struct statx& st) {
    struct stat made {};
    if (::fstat(out, &made) != 0) return false;
    unsigned mode = st.stx_mode & kPermissions;
    const Kept kept = KeepOwner(out, made, st);
    if (!kept.owner || !kept.group) mode &= ~unsigned{S_ISUID | S_ISGID};
    const Lists lists = CopyExtendedAttributes(in, out);
    RemoveInherited(out, lists, S_ISDIR(st.stx_mode));
    const bool isSet = (made.st_mode & kPermissions) == mode && (mode & ~0777u) == 0;
    if (!isSet || lists.access) ::fchmod(out, mode);
    const std::array<timespec, 2> times{AsTimespec(st.stx_atime), AsTimespec(st.stx_mtime)};
    ::futimens(out, times.data());
    return kept.group;
}

} // namespace tarvix::platform
