#include "platform/linux/linux_launcher.h"

#include "platform/linux/errno_failure.h"
#include "platform/names.h"
#include "platform/try.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::platform {

namespace {

std::unexpected<PlatformError> CannotOpen(std::string_view path, std::string_view why) {
    return std::unexpected(
        PlatformError{kPermissionDenied,
                      fmt::format("Nothing could be started to open {}: {}", ForDisplay(path), why),
                      std::string(path)});
}

// Why it wasn't opened, unless the object itself is what is missing.
Result<void> Told(Result<void> started, std::string_view path) {
    if (started || started.error().number == kFileNotFound) return started;
    return CannotOpen(path, started.error().description);
}

Result<void> StartPlan(Applications& applications, const Result<LaunchPlan>& plan) {
    if (!plan) return std::unexpected(plan.error());
    return applications.Start(*plan);
}

} // namespace

Result<void> LinuxLauncher::OpenDocument(std::string_view path) {
    const std::string object(path);
    const std::string type = applications_.TypeOf(path);
    if (type.empty()) return FailureBy(kFileNotFound, path);
    const auto application = applications_.DefaultFor(type);
    if (!application) return CannotOpen(path, "no application is set for such files.");
    const std::string folder = text::ParentFolder(path);
    return Told(StartPlan(applications_,
                          applications_.PlanApplication(application->id, {&object, 1}, folder)),
                path);
}

Result<void> LinuxLauncher::OpenWith(std::string_view command, std::string_view path) {
    const std::string object(path);
    const std::string folder = text::ParentFolder(path);
    return Told(StartPlan(applications_, applications_.PlanCommand(command, {&object, 1}, folder)),
                path);
}

Result<void> NullLauncher::OpenDocument(std::string_view path) {
    return CannotOpen(path, "there is no desktop here.");
}

Result<void> NullLauncher::OpenWith(std::string_view, std::string_view path) {
    return CannotOpen(path, "there is no desktop here.");
}

} // namespace tarvix::platform
