#include "platform/linux/linux_launcher.h"

#include "platform/linux/glib_pointer.h"
#include "platform/names.h"

namespace tarvix::platform {

namespace {
std::unexpected<PlatformError> CannotOpen(std::string_view path, std::string_view why) {
    return Failure(kPermissionDenied, "Nothing could be started to open " + ForDisplay(path) +
                                          ": " + std::string(why));
}
} // namespace

Result<void> LinuxLauncher::OpenDocument(std::string_view path) {
    const auto truePath = files_.TruePath(path);
    if (!truePath) return Failure(kFileNotFound, truePath.error().description);
    const GlibPointer<char> address(
        g_filename_to_uri(paths_.ToNative(*truePath).c_str(), nullptr, nullptr));
    if (address == nullptr) return CannotOpen(path, "its path has no address.");
    GError* error = nullptr;
    if (g_app_info_launch_default_for_uri(address.get(), nullptr, &error)) return {};
    const GlibPointer<GError> held(error);
    return CannotOpen(path, error == nullptr ? "no reason given." : error->message);
}

Result<void> NullLauncher::OpenDocument(std::string_view path) {
    return CannotOpen(path, "there is no desktop here.");
}

} // namespace tarvix::platform
