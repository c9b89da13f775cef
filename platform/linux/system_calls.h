#pragma once

#include "platform/linux/errno_failure.h"
#include "platform/linux/unique_fd.h"
#include "platform/object_facts.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace tarvix::platform {

// Where a system call finds an object: a name relative to an open folder, or an absolute path with
// AT_FDCWD. The text belongs to the caller.
struct At {
    int folder;
    const char* name;
};

// A native path made short for one system call. It points into the path it was made from.
struct Location {
    std::shared_ptr<const UniqueFd> folder; // none when the path is absolute
    const char* name = nullptr;

    operator At() const; // NOLINT: meant to stand for it
};

// An absolute path as it is, or walked in steps where it is longer than the system takes at once.
Sys<Location> Locate(const std::string& native);

// Facts of an object as the system gives them, links not followed; birth time where it is kept.
Sys<struct statx> StatOf(At at);
// The same for what a link leads to.
Sys<struct statx> StatBehind(At at);
Sys<struct statx> StatOf(int fd);
// The path is taken in steps, as by Locate.
Sys<struct statx> StatOfPath(const std::string& native);
Sys<struct statx> StatBehindPath(const std::string& native);

// The calls of these routines that the thread made, from its start.
struct CallCounts {
    std::uint64_t looks = 0; // at an object
    std::uint64_t opens = 0;
};
CallCounts CallsOfThread();

// The number of the file system that an object lies on; whether two facts are of one object, by
// that number and its inode; and a time in nanoseconds since 1970.
std::uint64_t DeviceOf(const struct statx& st);
bool IsSameObject(const struct statx& a, const struct statx& b);
FileTime TimeOf(const struct statx_timestamp& stamp);

// The path of an open folder, as the system has it now.
Sys<std::string> PathOf(int folder);

// openat with O_CLOEXEC, tried again when a signal came between.
Sys<UniqueFd> OpenAt(At at, int flags, unsigned mode = 0);

// A folder below an open one, by a path of names of any length, for its descriptor alone. No
// symbolic link on the way is followed (ELOOP, ENOTDIR).
Sys<UniqueFd> OpenBelow(int folder, std::string_view names);

// The same for any object, opened in one step: ENOSYS, EPERM or EAGAIN where that can't be done.
Sys<UniqueFd> OpenBelowAtOnce(At at, int flags);

// All that can be read from a descriptor, from where it stands; EFBIG beyond `most` bytes.
Sys<std::string> ReadAll(int fd, std::size_t most);
// Writes everything or fails.
Sys<void> WriteAll(int fd, std::string_view bytes);

// A small file of the system's own, such as /proc/self/mountinfo; empty when it can't be read.
std::string ReadSystemText(const std::string& native);

// Nanoseconds that only grow.
std::int64_t SteadyNow();
// The same, up to a few milliseconds behind, for next to nothing.
std::int64_t SteadyTick();

} // namespace tarvix::platform
