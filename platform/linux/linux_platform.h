#pragma once

#include "platform/linux/drive_table.h"
#include "platform/linux/linux_applications.h"
#include "platform/linux/linux_clock.h"
#include "platform/linux/linux_content_types.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/linux_environment.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_launcher.h"
#include "platform/linux/linux_native_paths.h"
#include "platform/linux/linux_registry.h"
#include "platform/linux/linux_trash.h"
#include "platform/platform.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvix::platform {

struct LinuxOptions {
    // A letter and the native folder that it stands for.
    std::vector<ExtraDrive> extraDrives;
    std::optional<text::DateTime> now; // a clock that stands still
    std::string dataFolder;            // native or drive path; "" for TARVIX_DATA_FOLDER or none
    std::string programFolder;         // native path; "" for where the program lies
    bool hasDesktop = true;            // false: other programs are never started
    Mounts::ReadText readMounts;       // the mount table's text; this process's unless given
    CopyRoads copyRoads;
    StoreClock storeClock;
};

// The machine that the program runs on. It owns all parts.
class LinuxPlatform {
  public:
    explicit LinuxPlatform(LinuxOptions options = {});

    Platform Parts() {
        return {files_,        paths_,        clock_,   environment_, registry_, *launcher_,
                contentTypes_, applications_, desktop_, trash_,       kTraits};
    }

  private:
    static constexpr Traits kTraits{.keepsEveryDate = true,
                                    .hasNativePaths = true,
                                    .takesLongPaths = true,
                                    .passesDeepFolders = true,
                                    .keepsFinalDots = true,
                                    .takesRoots = true};

    LinuxPlatform(LinuxOptions options, const EnvironmentSource& source);

    Mounts mounts_;
    LinuxFileSystem files_;
    LinuxNativePaths paths_;
    LinuxClock clock_;
    LinuxEnvironment environment_;
    LinuxApplications applications_;
    LinuxDesktop desktop_;
    LinuxRegistry registry_{applications_};
    std::unique_ptr<Launcher> launcher_;
    LinuxContentTypes contentTypes_;
    LinuxTrash trash_{files_};
};

} // namespace tarvix::platform
