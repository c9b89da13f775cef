#pragma once

#include "platform/linux/linux_platform.h"
#include "session/lifecycle/data_folder.h"

namespace tarvix::app {

// Adds the letters that were saved in the data folder; a letter that `options` gives already, and a
// folder that has one there, stay as they are.
inline void AddSavedDrives(platform::LinuxOptions& options) {
    platform::LinuxPlatform machine(options);
    for (auto& drive : lifecycle::SavedDrives(machine.Parts())) {
        options.extraDrives.push_back(std::move(drive));
    }
}

} // namespace tarvix::app
