#include "tests/machine/memory_platform.h"

namespace tarvix::platform {

namespace {
constexpr const char* kFolders[] = {
    "C:\\home\\ann\\Desktop", "C:\\home\\ann\\Documents", "C:\\home\\ann\\Downloads",
    "C:\\home\\ann\\Music",   "C:\\home\\ann\\tarvix",    "C:\\tmp",
};
} // namespace

MemoryPlatform::MemoryPlatform() {
    disk.UseClock([this] { return clock.NowAsFileTime(); });
    for (const char* folder : kFolders)
        disk.AddFolder(folder);
}

} // namespace tarvix::platform
