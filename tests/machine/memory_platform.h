#pragma once

#include "platform/platform.h"
#include "tests/machine/faulty_file_system.h"
#include "tests/machine/faulty_trash.h"
#include "tests/machine/memory_applications.h"
#include "tests/machine/memory_clock.h"
#include "tests/machine/memory_content_types.h"
#include "tests/machine/memory_desktop.h"
#include "tests/machine/memory_environment.h"
#include "tests/machine/memory_file_system.h"
#include "tests/machine/memory_launcher.h"
#include "tests/machine/memory_native_paths.h"
#include "tests/machine/memory_registry.h"
#include "tests/machine/memory_trash.h"

namespace tarvix::platform {

// A whole machine in memory: drive C: with the home of ann (Documents, Music, Downloads, Desktop
// and the program's folder) and C:\tmp. The platform it gives reaches the disk and the trash
// through `faults`, which fails nothing until it is told to; `disk` and `bin` themselves are the
// way behind its back.
struct MemoryPlatform {
    MemoryPlatform();
    MemoryPlatform(const MemoryPlatform&) = delete;
    MemoryPlatform& operator=(const MemoryPlatform&) = delete;

    MemoryClock clock;
    MemoryFileSystem disk;
    FaultyFileSystem faults{disk};
    MemoryNativePaths paths{disk};
    MemoryEnvironment environment;
    MemoryRegistry registry;
    MemoryLauncher launcher{disk};
    MemoryContentTypes contentTypes;
    MemoryApplications applications{disk};
    MemoryDesktop desktop;
    MemoryTrash bin{disk};
    FaultyTrash trash{faults, bin};
    Platform platform{faults,   paths,        clock,        environment, registry,
                      launcher, contentTypes, applications, desktop,     trash};
};

} // namespace tarvix::platform
