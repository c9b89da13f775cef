#include "platform/linux/system_calls.h"

#include "platform/try.h"

#include <climits>
#include <fmt/core.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr unsigned kMask = STATX_BASIC_STATS | STATX_BTIME;
constexpr int kFlags = AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT;
constexpr std::size_t kSystemTextLimit = 16 << 20;

thread_local CallCounts callsOfThread;

Sys<struct statx> Stat(At at, int flags) {
    ++callsOfThread.looks;
    struct statx st;
    if (::statx(at.folder, at.name, kFlags | flags, kMask, &st) != 0) {
        return std::unexpected(errno);
    }
    return st;
}
} // namespace

Location::operator At() const {
    return {folder ? folder->Get() : AT_FDCWD, name};
}

Sys<Location> Locate(const std::string& native) {
    Location location{nullptr, native.empty() ? "/" : native.c_str()};
    std::size_t begin = 0;
    while (native.size() - begin >= PATH_MAX) {
        const std::size_t slash = native.rfind('/', begin + PATH_MAX - 1);
        if (slash == native.npos || slash <= begin) return std::unexpected(ENAMETOOLONG);
        const std::string step = native.substr(begin, slash - begin);
        const int from = location.folder ? location.folder->Get() : AT_FDCWD;
        TX_TRY_ASSIGN(UniqueFd opened, OpenAt({from, step.c_str()}, O_PATH | O_DIRECTORY));
        location.folder = std::make_shared<const UniqueFd>(std::move(opened));
        begin = slash + 1;
        location.name = native.c_str() + begin;
    }
    return location;
}

Sys<struct statx> StatOf(At at) {
    return Stat(at, AT_SYMLINK_NOFOLLOW);
}

Sys<struct statx> StatBehind(At at) {
    return Stat(at, 0);
}

Sys<struct statx> StatOf(int fd) {
    return Stat({fd, ""}, AT_EMPTY_PATH);
}

Sys<struct statx> StatOfPath(const std::string& native) {
    TX_TRY_ASSIGN(const Location location, Locate(native));
    return StatOf(At(location));
}

Sys<struct statx> StatBehindPath(const std::string& native) {
    TX_TRY_ASSIGN(const Location location, Locate(native));
    return StatBehind(location);
}

Sys<std::string> PathOf(int folder) {
    std::string path(PATH_MAX, '\0');
    const std::string link = fmt::format("/proc/self/fd/{}", folder);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    if (length <= 0) return std::unexpected(errno);
    path.resize(static_cast<std::size_t>(length));
    return path;
}

CallCounts CallsOfThread() {
    return callsOfThread;
}

std::uint64_t DeviceOf(const struct statx& st) {
    return makedev(st.stx_dev_major, st.stx_dev_minor);
}

bool IsSameObject(const struct statx& a, const struct statx& b) {
    return a.stx_ino == b.stx_ino && a.stx_dev_major == b.stx_dev_major &&
           a.stx_dev_minor == b.stx_dev_minor;
}

FileTime TimeOf(const struct statx_timestamp& stamp) {
    return FileTime{stamp.tv_sec} * 1'000'000'000 + stamp.tv_nsec;
}

Sys<UniqueFd> OpenAt(At at, int flags, unsigned mode) {
    ++callsOfThread.opens;
    while (true) {
        UniqueFd fd(::openat(at.folder, at.name, flags | O_CLOEXEC, mode));
        if (fd) return fd;
        if (errno != EINTR) return std::unexpected(errno);
    }
}

namespace {
constexpr int kFolderAlone = O_PATH | O_DIRECTORY | O_NOFOLLOW;

} // namespace

Sys<UniqueFd> OpenBelowAtOnce(At at, int flags) {
    ++callsOfThread.opens;
    open_how how{};
    how.flags = static_cast<std::uint64_t>(flags | O_CLOEXEC);
    how.resolve = RESOLVE_NO_SYMLINKS | RESOLVE_BENEATH;
    UniqueFd fd(static_cast<int>(::syscall(SYS_openat2, at.folder, at.name, &how, sizeof how)));
    if (!fd) return std::unexpected(errno);
    return fd;
}

// Where that can't be done in one step, each name is one.
Sys<UniqueFd> OpenBelow(int folder, std::string_view names) {
    const std::string path(names);
    auto whole = path.size() < PATH_MAX ? OpenBelowAtOnce({folder, path.c_str()}, kFolderAlone)
                                        : Sys<UniqueFd>(std::unexpected(ENAMETOOLONG));
    const bool isOtherwise = !whole && (whole.error() == ENOSYS || whole.error() == EPERM ||
                                        whole.error() == EAGAIN || whole.error() == ENAMETOOLONG);
    if (!isOtherwise) return whole;
    UniqueFd at;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const std::string name = path.substr(begin, end - begin);
        TX_TRY_ASSIGN(UniqueFd next, OpenAt({at ? at.Get() : folder, name.c_str()}, kFolderAlone));
        at = std::move(next);
        begin = end + 1;
    }
    return at;
}

Sys<std::string> ReadAll(int fd, std::size_t most) {
    std::string out;
    std::size_t used = 0;
    while (true) {
        if (out.size() - used < 4096) out.resize(out.size() * 2 + 16384);
        const ssize_t got = ::read(fd, out.data() + used, out.size() - used);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::unexpected(errno);
        if (got == 0) break;
        used += static_cast<std::size_t>(got);
        if (used > most) return std::unexpected(EFBIG);
    }
    out.resize(used);
    return out;
}

Sys<void> WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = ::write(fd, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return std::unexpected(errno);
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return {};
}

std::string ReadSystemText(const std::string& native) {
    const auto fd = OpenAt({AT_FDCWD, native.c_str()}, O_RDONLY | O_NONBLOCK);
    if (!fd) return {};
    return ReadAll(fd->Get(), kSystemTextLimit).value_or(std::string());
}

namespace {
std::int64_t Nanoseconds(clockid_t clock) {
    timespec now{};
    ::clock_gettime(clock, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}
} // namespace

std::int64_t SteadyNow() {
    return Nanoseconds(CLOCK_MONOTONIC);
}

std::int64_t SteadyTick() {
    return Nanoseconds(CLOCK_MONOTONIC_COARSE);
}

} // namespace tarvix::platform
