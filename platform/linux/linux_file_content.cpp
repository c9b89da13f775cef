#include "platform/linux/copy_content.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_text_stream.h"
#include "platform/linux/native_facts.h"
#include "platform/linux/part_file.h"
#include "platform/try.h"
#include "text/encoding.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
// A list or playlist larger than this is none.
constexpr std::size_t kTextLimit = std::size_t{1} << 30;
constexpr std::size_t kReadStep = 1 << 20;

int FlagsOf(OpenMode mode) {
    switch (mode) {
    case OpenMode::kWrite:
        return O_WRONLY;
    case OpenMode::kAppend:
        return O_WRONLY | O_APPEND;
    default:
        return O_RDONLY;
    }
}

Result<UniqueFd> OpenForBytes(const Resolved& place, int flags, std::string_view path) {
    TX_TRY_ASSIGN(const Location location, Named(Locate(place.native), path));
    return Named(OpenAt(location, flags | O_NONBLOCK | O_NOCTTY), path);
}

// Whether nobody else writes the file through a text stream; from then on nobody else can. A file
// system without locks lets everyone.
bool LockForWriting(const UniqueFd& fd) {
    return ::flock(fd.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

Sys<std::string> ReadPart(int fd, std::uint64_t offset, std::size_t count) {
    std::string out;
    while (out.size() < count) {
        const std::size_t used = out.size();
        const std::size_t step = std::min(count - used, kReadStep);
        out.resize(used + step);
        const ssize_t got = ::pread(fd, out.data() + used, step, static_cast<off_t>(offset + used));
        if (got < 0 && errno != EINTR) return std::unexpected(errno);
        out.resize(used + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) break;
    }
    return out;
}
// Gives the file at the end of all links the content of an open one in one step.
Sys<void> WriteBehindLinks(const std::string& native, int from, const CopyRoads& roads) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(native.c_str(), nullptr),
                                                           std::free);
    if (!real) return std::unexpected(errno);
    const std::string path = real.get();
    const std::size_t slash = path.rfind('/');
    const std::string name = path.substr(slash + 1);
    const auto folder = OpenAt({AT_FDCWD, slash == 0 ? "/" : path.substr(0, slash).c_str()},
                               O_RDONLY | O_DIRECTORY);
    if (!folder) return std::unexpected(folder.error());
    const At at{folder->Get(), name.c_str()};
    TX_TRY_ASSIGN(const auto st, StatOf(at));
    TX_TRY_ASSIGN(auto part, PartFile::Create(folder->Get(), 0600, roads));
    TX_TRY_ASSIGN(const auto fromSt, StatOf(from));
    const CopyObserver unobserved;
    CopyRun run(unobserved, roads, true);
    TX_TRY(CopyContent(from, part.Fd(), fromSt, run));
    // What may not be read still has a mode and an owner.
    const auto old = OpenAt(at, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (old) CopyMetadata(old->Get(), part.Fd(), st);
    if (!old) ::fchmod(part.Fd(), st.stx_mode & 07777);
    ::futimens(part.Fd(), nullptr);
    return part.Commit(at, true);
}
} // namespace

Result<Resolved> LinuxFileSystem::FileForBytes(std::string_view path, bool toWrite) {
    TX_TRY_ASSIGN(Resolved place, resolver_.File(path));
    TX_TRY_ASSIGN(const auto behind, Named(StatBehindPath(place.native), path));
    if (S_ISDIR(behind.stx_mode)) return FailureBy(kFileNotFound, path);
    if (!S_ISREG(behind.stx_mode)) return FailureBy(kBadFileName, path);
    if (toWrite && IsReadOnly(behind)) return FailureBy(kPermissionDenied, path);
    return place;
}

Result<std::string> LinuxFileSystem::ReadBytes(std::string_view path, std::uint64_t offset,
                                               std::size_t count) {
    TX_TRY_ASSIGN(const Resolved place, FileForBytes(path, false));
    TX_TRY_ASSIGN(const UniqueFd fd, OpenForBytes(place, O_RDONLY, path));
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()) - count) return {};
    return Named(ReadPart(fd.Get(), offset, count), path);
}

Result<std::unique_ptr<TextStream>> LinuxFileSystem::CreateTextFile(std::string_view path,
                                                                    bool overwrite) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.Target(path));
    if (place.Exists()) {
        if (!overwrite) return FailureBy(kAlreadyExists, path);
        if (LeadsToFolder(place)) return FailureBy(kPathFileAccess, path);
        return OpenAsTextStream(path, OpenMode::kWrite);
    }
    TX_TRY_ASSIGN(const Location location, Named(store_.Locate(place.native), path));
    auto fd = OpenAt(location, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (!fd && fd.error() == ENOENT) return FailureBy(kPathNotFound, path);
    if (!fd) return FailureOf(fd.error(), path);
    NoteMade(place);
    if (!LockForWriting(*fd)) return FailureBy(kPermissionDenied, path);
    return std::make_unique<LinuxTextWriter>(std::move(*fd), std::string(path));
}

Result<void> LinuxFileSystem::ReplaceContent(std::string_view path, std::string_view from) {
    TX_TRY_ASSIGN(const Resolved source, FileForBytes(from, false));
    TX_TRY_ASSIGN(const UniqueFd in, OpenForBytes(source, O_RDONLY, from));
    TX_TRY_ASSIGN(const Resolved place, FileForBytes(path, false));
    NoteChanged();
    return Named(WriteBehindLinks(place.native, in.Get(), roads_), path);
}

Result<std::unique_ptr<TextStream>> LinuxFileSystem::OpenAsTextStream(std::string_view path,
                                                                      OpenMode mode) {
    TX_TRY_ASSIGN(const Resolved place, FileForBytes(path, mode != OpenMode::kRead));
    TX_TRY_ASSIGN(UniqueFd fd, OpenForBytes(place, FlagsOf(mode), path));
    if (mode != OpenMode::kRead) {
        NoteChanged();
        if (!LockForWriting(fd)) return FailureBy(kPermissionDenied, path);
        if (mode == OpenMode::kWrite && ::ftruncate(fd.Get(), 0) != 0) {
            return FailureOf(errno, path);
        }
        return std::make_unique<LinuxTextWriter>(std::move(fd), std::string(path));
    }
    TX_TRY_ASSIGN(const std::string bytes, Named(ReadAll(fd.Get(), kTextLimit), path));
    return std::make_unique<LinuxTextReader>(text::FromFileBytes(bytes), std::string(path));
}

} // namespace tarvix::platform
