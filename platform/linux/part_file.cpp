#include "platform/linux/part_file.h"

#include "platform/linux/temporary.h"

#include <fmt/core.h>

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
    const std::string path = fmt::format("/proc/self/fd/{}", fd);
    return Link({AT_FDCWD, path.c_str()}, to, AT_SYMLINK_FOLLOW);
}

bool IsUnsupported(int error) {
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM ||
           error == EMLINK;
}

// While it lives the owner may write to an object that is read-only otherwise.
class MadeWritable {
  public:
    explicit MadeWritable(At at) {
        auto fd = OpenAt(at, O_PATH | O_NOFOLLOW);
        const auto st = fd ? StatOf(fd->Get()) : std::unexpected(fd.error());
        if (!st || S_ISLNK(st->stx_mode) || (st->stx_mode & S_IWUSR) != 0) return;
        fd_ = std::move(*fd);
        mode_ = st->stx_mode & 07777u;
        if (!Set(mode_ | S_IWUSR)) fd_.Reset();
    }
    ~MadeWritable() {
        if (fd_) (void)Set(mode_);
    }
    MadeWritable(const MadeWritable&) = delete;
    MadeWritable& operator=(const MadeWritable&) = delete;
    explicit operator bool() const { return static_cast<bool>(fd_); }

  private:
    // The object itself, whatever its name is by then.
    bool Set(unsigned mode) const {
        const std::string path = fmt::format("/proc/self/fd/{}", fd_.Get());
        return ::chmod(path.c_str(), mode) == 0;
    }

    UniqueFd fd_;
    unsigned mode_ = 0;
};

// For disks that know neither a rename that never replaces nor hard links: some drives of phones
// and cameras, some shares. There nothing can give a name and keep others from it in one step. A
// placeholder under the new name would keep out those alone who never replace either, while what
// all others write into it would be lost just so; and a run that is killed behind it would leave an
// empty file where people look for a whole one. So the name is looked for in the call before. A
// plain rename puts a folder over nothing but an empty folder.
Sys<void> RenameIfFree(At from, At to) {
    const auto standing = StatOf(to);
    if (standing) return std::unexpected(EEXIST);
    if (standing.error() != ENOENT) return std::unexpected(standing.error());
    return Rename(from, to);
}
} // namespace

Sys<void> RenameInOneStep(At from, At to) {
    return Checked(::renameat2(from.folder, from.name, to.folder, to.name, RENAME_NOREPLACE));
}

Sys<void> RenameWithoutReplacing(At from, At to, bool isFolder, const CopyRoads& roads) {
    if (roads.renameNoReplace) {
        const auto renamed = RenameInOneStep(from, to);
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
    return RenameIfFree(from, to);
}

Sys<void> RenameReadOnly(At from, At to, bool isFolder, const CopyRoads& roads) {
    const auto renamed = RenameWithoutReplacing(from, to, isFolder, roads);
    if (renamed || (renamed.error() != EACCES && renamed.error() != EPERM)) return renamed;
    const MadeWritable writable(from);
    return writable ? RenameWithoutReplacing(from, to, isFolder, roads) : renamed;
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
        if (fd) {
            LockTemporary(fd->Get());
            return PartFile(folder, std::move(*fd), std::move(name), roads);
        }
        if (fd.error() != EEXIST) return std::unexpected(fd.error());
    }
    return std::unexpected(EEXIST);
}

Sys<PartFile> PartFile::CreateInside(int folder, const char* name, unsigned mode) {
    auto fd = OpenAt({folder, name}, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
    if (!fd) return std::unexpected(fd.error());
    PartFile part(folder, std::move(*fd), name, {});
    part.isInside_ = true;
    return part;
}

PartFile::PartFile(PartFile&& other) noexcept
    : folder_(other.folder_), fd_(std::move(other.fd_)),
      temporary_(std::exchange(other.temporary_, {})), isInside_(other.isInside_),
      roads_(other.roads_) {}

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
    const bool isOpen = static_cast<bool>(fd_);
    if (isOpen && ::close(fd_.Release()) != 0 && errno != EINTR) return std::unexpected(errno);
    if (isInside_) {
        temporary_.clear();
        return {};
    }
    const At temporary{folder_, temporary_.c_str()};
    const auto named =
        overwrite ? Rename(temporary, to) : RenameWithoutReplacing(temporary, to, false, roads_);
    if (named) temporary_.clear();
    return named;
}

} // namespace tarvix::platform
