#pragma once

#include "platform/linux/errno_failure.h"

#include <string>
#include <string_view>
#include <sys/types.h>

namespace tarvix::platform {

// Files and folders that bear a hidden name of ours until they are whole. Who makes one holds a
// lock on it, so that what a killed run left can be told from what another run is writing.

// A name for one, new in this process.
std::string TemporaryName();
// The process that made an object of that disk name; 0 when it is no name of ours.
pid_t MakerOfTemporary(std::string_view nativeName);
// Locks an open one for as long as it is open; where there are no locks, nothing.
void LockTemporary(int fd);

// Takes one away with all that it holds, never through a link and never into another file system.
Sys<void> RemoveTemporary(int folder, const std::string& name);
// The same if its maker is gone and nobody holds it; gives whether it went.
bool RemoveIfAbandoned(int folder, const std::string& name);

} // namespace tarvix::platform
