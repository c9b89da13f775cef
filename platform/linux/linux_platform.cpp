#include "platform/linux/linux_platform.h"

namespace tarvix::platform {

LinuxPlatform::LinuxPlatform(LinuxOptions options)
    : LinuxPlatform(options, ReadEnvironment(options.dataFolder, options.programFolder)) {}

LinuxPlatform::LinuxPlatform(LinuxOptions options, const EnvironmentSource& source)
    : mounts_(std::move(options.extraDrives), std::move(options.readMounts)),
      files_(mounts_, options.copyRoads, options.storeClock), paths_(mounts_, source.home),
      clock_(options.now), environment_(source, paths_), applications_(files_, paths_, source.home),
      desktop_(source.home) {
    if (options.hasDesktop) {
        launcher_ = std::make_unique<LinuxLauncher>(applications_);
    } else {
        launcher_ = std::make_unique<NullLauncher>();
    }
}

} // namespace tarvix::platform
