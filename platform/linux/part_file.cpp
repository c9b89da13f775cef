#include "platform/linux/part_file.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr int kMostTries = 100;

Sys<void> Checked(int result) {
    if (result != 0) return std::unexpected(errno);
    return {};
}

Sys<void> Link(At from, At to, int flags) {
    return Checked(::linkat(from.folder, from.name, to.folder, to.name, flags));
}

Sys<void> Rename(At from, At to) {
    return Checked(::renameat(from.folder, from.name, to.folder, to.name));
}

// Names an open nameless file.
Sys<void> LinkOpen(int fd, At to) {
    // Not every system lets everyone name a file by its descriptor alone.
    static std::atomic<bool> byDescriptor{true};
    if (byDescriptor) {
        const auto linked = Link({fd, ""}, to, AT_EMPTY_PATH);
        if (linked || linked.error() == EEXIST) return linked;
        if (linked.error() == ENOENT || linked.error() == EPERM) byDescriptor = false;
    }
    const std::string path = "/proc/self/fd/" + std::to_string(fd);
    return Link({AT_FDCWD, path.c_str()}, to, AT_SYMLINK_FOLLOW);
}

bool IsUnsupported(int error) {
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM ||
           error == EMLINK;
}

Sys<void> RenameOverPlaceholder(At from, At to, bool isFolder) {
    if (isFolder) {
        if (const auto made = Checked(::mkdirat(to.folder, to.name, 0700)); !made) return made;
    } else {
        const auto made = OpenAt(to, O_WRONLY | O_CREAT | O_EXCL, 0600);
        if (!made) return std::unexpected(made.error());
    }
    const auto renamed = Rename(from, to);
    if (!renamed) ::unlinkat(to.folder, to.name, isFolder ? AT_REMOVEDIR : 0);
    return renamed;
}
} // namespace

std::string TemporaryName() {
    static std::atomic<unsigned> counter{0};
    return ".tarvix-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) + ".part";
}

Sys<void> RenameWithoutReplacing(At from, At to, bool isFolder, const CopyRoads& roads) {
    if (roads.renameNoReplace) {
        const auto renamed =
            Checked(::renameat2(from.folder, from.name, to.folder, to.name, RENAME_NOREPLACE));
        if (renamed || renamed.error() == EPERM || !IsUnsupported(renamed.error())) return renamed;
    }
    if (!isFolder && roads.links) {
        const auto linked = Link(from, to, 0);
        if (linked) {
            const auto gone = Checked(::unlinkat(from.folder, from.name, 0));
            if (!gone) ::unlinkat(to.folder, to.name, 0);
            return gone;
        }
        if (!IsUnsupported(linked.error())) return linked;
    }
    return RenameOverPlaceholder(from, to, isFolder);
}

Sys<PartFile> PartFile::CreateUnnamed(int folder, unsigned mode) {
    auto fd = OpenAt({folder, "."}, O_TMPFILE | O_WRONLY, mode);
    if (!fd) return std::unexpected(fd.error());
    return PartFile(folder, std::move(*fd), {}, {});
}

Sys<PartFile> PartFile::Create(int folder, unsigned mode, const CopyRoads& roads) {
    if (roads.unnamedParts) {
        auto part = CreateUnnamed(folder, mode);
        if (part) return part;
        const int error = part.error();
        const bool isUnknownHere = error == EOPNOTSUPP || error == EISDIR || error == ENOENT ||
                                   error == EINVAL || error == ENOSYS;
        if (!isUnknownHere) return std::unexpected(error);
    }
    for (int i = 0; i < kMostTries; ++i) {
        std::string name = TemporaryName();
        auto fd = OpenAt({folder, name.c_str()}, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
        if (fd) return PartFile(folder, std::move(*fd), std::move(name), roads);
        if (fd.error() != EEXIST) return std::unexpected(fd.error());
    }
    return std::unexpected(EEXIST);
}

PartFile::PartFile(PartFile&& other) noexcept
    : folder_(other.folder_), fd_(std::move(other.fd_)),
      temporary_(std::exchange(other.temporary_, {})), roads_(other.roads_) {}

PartFile::~PartFile() {
    if (!temporary_.empty()) ::unlinkat(folder_, temporary_.c_str(), 0);
}

Sys<void> PartFile::NameUnnamed(At to, bool overwrite) {
    const auto linked = LinkOpen(Fd(), to);
    if (linked || linked.error() != EEXIST || !overwrite) return linked;
    // What exists is replaced in one step, by way of a temporary name.
    std::string temporary = TemporaryName();
    folder_ = to.folder;
    if (const auto named = LinkOpen(Fd(), {folder_, temporary.c_str()}); !named) return named;
    temporary_ = std::move(temporary);
    return Rename({folder_, temporary_.c_str()}, to);
}

Sys<void> PartFile::Commit(At to, bool overwrite) {
    if (temporary_.empty()) {
        const auto named = NameUnnamed(to, overwrite);
        if (named) temporary_.clear();
        return named;
    }
    // Network file systems tell only at the close that a write failed.
    if (::close(fd_.Release()) != 0 && errno != EINTR) return std::unexpected(errno);
    const At temporary{folder_, temporary_.c_str()};
    const auto named =
        overwrite ? Rename(temporary, to) : RenameWithoutReplacing(temporary, to, false, roads_);
    if (named) temporary_.clear();
    return named;
}

} // namespace tarvix::platform
