#include "tests/sweep/file_calls.h"

#include <climits>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace tarvix::sweep {

namespace {

std::string LinkTarget(const std::string& link) {
    std::array<char, PATH_MAX> target;
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    return length < 0 ? std::string()
                      : std::string(target.data(), static_cast<std::size_t>(length));
}

std::string TextAt(pid_t thread, std::uint64_t address) {
    if (address == 0) return {};
    std::array<char, PATH_MAX> text;
    // A text may end just before memory that can't be read.
    for (std::size_t size = text.size(); size > 0; size /= 2) {
        iovec here{text.data(), size};
        iovec there{reinterpret_cast<void*>(address), size};
        const ssize_t length = ::process_vm_readv(thread, &here, 1, &there, 1, 0);
        if (length <= 0) continue;
        const auto end = std::find(text.begin(), text.begin() + length, '\0');
        return {text.begin(), end};
    }
    return {};
}

std::string PathOfDescriptor(pid_t thread, int descriptor) {
    const std::string process = "/proc/" + std::to_string(thread);
    return LinkTarget(descriptor == AT_FDCWD ? process + "/cwd"
                                             : process + "/fd/" + std::to_string(descriptor));
}

} // namespace

const std::vector<FileCall>& FileCalls() {
    static const std::vector<FileCall> calls{
        {.number = SYS_openat, .name = "openat", .folder = 0, .path = 1},
        {.number = SYS_openat2, .name = "openat2", .folder = 0, .path = 1},
        {.number = SYS_renameat, .name = "renameat", .folder = 0, .path = 1},
        {.number = SYS_renameat2, .name = "renameat2", .folder = 0, .path = 1},
        {.number = SYS_linkat, .name = "linkat", .folder = 2, .path = 3},
        {.number = SYS_symlinkat, .name = "symlinkat", .folder = 1, .path = 2},
        {.number = SYS_unlinkat, .name = "unlinkat", .folder = 0, .path = 1},
        {.number = SYS_mkdirat, .name = "mkdirat", .folder = 0, .path = 1},
        {.number = SYS_fchmodat, .name = "fchmodat", .folder = 0, .path = 1},
        {.number = SYS_fchownat, .name = "fchownat", .folder = 0, .path = 1},
        {.number = SYS_utimensat, .name = "utimensat", .folder = 0, .path = 1},
        {.number = SYS_statx, .name = "statx", .folder = 0, .path = 1},
        {.number = SYS_newfstatat, .name = "newfstatat", .folder = 0, .path = 1},
        {.number = SYS_readlinkat, .name = "readlinkat", .folder = 0, .path = 1},
#ifdef SYS_open
        {.number = SYS_open, .name = "open", .path = 0},
        {.number = SYS_rename, .name = "rename", .path = 0},
        {.number = SYS_link, .name = "link", .path = 1},
        {.number = SYS_symlink, .name = "symlink", .path = 1},
        {.number = SYS_unlink, .name = "unlink", .path = 0},
        {.number = SYS_mkdir, .name = "mkdir", .path = 0},
        {.number = SYS_rmdir, .name = "rmdir", .path = 0},
        {.number = SYS_chmod, .name = "chmod", .path = 0},
#endif
        {.number = SYS_setxattr, .name = "setxattr", .path = 0},
        {.number = SYS_lsetxattr, .name = "lsetxattr", .path = 0},
        {.number = SYS_read, .name = "read", .descriptor = 0},
        {.number = SYS_pread64, .name = "pread64", .descriptor = 0},
        {.number = SYS_write, .name = "write", .descriptor = 0},
        {.number = SYS_pwrite64, .name = "pwrite64", .descriptor = 0},
        {.number = SYS_writev, .name = "writev", .descriptor = 0},
        {.number = SYS_copy_file_range, .name = "copy_file_range", .descriptor = 2},
        {.number = SYS_sendfile, .name = "sendfile", .descriptor = 0},
        {.number = SYS_ftruncate, .name = "ftruncate", .descriptor = 0},
        {.number = SYS_fallocate, .name = "fallocate", .descriptor = 0},
        {.number = SYS_fsync, .name = "fsync", .descriptor = 0},
        {.number = SYS_fdatasync, .name = "fdatasync", .descriptor = 0},
        {.number = SYS_syncfs, .name = "syncfs", .descriptor = 0},
        {.number = SYS_fchmod, .name = "fchmod", .descriptor = 0},
        {.number = SYS_fchown, .name = "fchown", .descriptor = 0},
        {.number = SYS_fsetxattr, .name = "fsetxattr", .descriptor = 0},
        {.number = SYS_ioctl, .name = "ioctl", .descriptor = 0},
        {.number = SYS_getdents64, .name = "getdents64", .descriptor = 0},
        {.number = SYS_lseek, .name = "lseek", .descriptor = 0},
        {.number = SYS_flock, .name = "flock", .descriptor = 0},
    };
    return calls;
}

const FileCall* FileCallOf(long number) {
    const auto& calls = FileCalls();
    const auto found = std::ranges::find(calls, number, &FileCall::number);
    return found == calls.end() ? nullptr : &*found;
}

std::string SubjectOf(const FileCall& call, pid_t thread, const std::uint64_t (&arguments)[6]) {
    if (call.descriptor >= 0) {
        return PathOfDescriptor(thread, static_cast<int>(arguments[call.descriptor]));
    }
    std::string path = TextAt(thread, arguments[call.path]);
    if (path.starts_with('/')) return path;
    const int folder = call.folder < 0 ? AT_FDCWD : static_cast<int>(arguments[call.folder]);
    const std::string base = PathOfDescriptor(thread, folder);
    return path.empty() ? base : base + "/" + path;
}

} // namespace tarvix::sweep
