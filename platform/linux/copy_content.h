#pragma once

#include "platform/linux/copy_run.h"
#include "platform/linux/errno_failure.h"
#include "platform/linux/system_calls.h"

#include <cstdint>

namespace tarvix::platform {

constexpr unsigned kPlainPermissions = 0777; // that a new file may have at once
// Up to this size a file is copied in one go, and on another thread.
constexpr std::uint64_t kMostInOneGo = 256 << 10;

// Opens a file to be copied; not through a link, and without changing its access date where that is
// allowed.
Sys<UniqueFd> OpenForCopy(At source);
// The same by a path below an open folder, through no link on the way either.
Sys<UniqueFd> OpenForCopyBelow(At source);

// Copies all bytes of an open file into a new, empty one: shared blocks where the file system can,
// else by the kernel, else by reading and writing. Holes stay holes. `st` are the source's facts.
// ECANCELED when the observer wants no more.
Sys<void> CopyContent(int in, int out, const struct statx& st, CopyRun& run);

// Owner where permitted, extended attributes, access lists, mode and times from one open file or
// folder to another; what can't be held there is passed over. Gives whether the group is the same.
bool CopyMetadata(int in, int out, const struct statx& st);

} // namespace tarvix::platform
