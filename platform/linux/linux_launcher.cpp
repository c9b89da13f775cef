#include "platform/linux/linux_launcher.h"

#include "platform/linux/errno_failure.h"
#include "platform/linux/glib_pointer.h"
#include "platform/names.h"

namespace tarvix::platform {

namespace {
std::unexpected<PlatformError> CannotOpen(std::string_view path, std::string_view why) {
    return std::unexpected(PlatformError{kPermissionDenied,
                                         "Nothing could be started to open " + ForDisplay(path) +
                                             ": " + std::string(why),
                                         std::string(path)});
}

template <class T>
using GObjectPointer = std::unique_ptr<T, decltype(&g_object_unref)>;

template <class T>
GObjectPointer<T> Own(T* object) {
    return {object, g_object_unref};
}

Result<void> Started(gboolean isStarted, GError* error, std::string_view path) {
    if (isStarted) return {};
    const GlibPointer<GError> held(error);
    return CannotOpen(path, error == nullptr ? "no reason given." : error->message);
}
} // namespace

Result<void> LinuxLauncher::OpenDocument(std::string_view path) {
    const auto truePath = files_.TruePath(path);
    if (!truePath) return FailureBy(kFileNotFound, path);
    const GlibPointer<char> address(
        g_filename_to_uri(paths_.ToNative(*truePath).c_str(), nullptr, nullptr));
    if (address == nullptr) return CannotOpen(path, "its path has no address.");
    GError* error = nullptr;
    const gboolean isStarted = g_app_info_launch_default_for_uri(address.get(), nullptr, &error);
    return Started(isStarted, error, path);
}

Result<void> LinuxLauncher::OpenWith(std::string_view command, std::string_view path) {
    const auto truePath = files_.TruePath(path);
    if (!truePath) return FailureBy(kFileNotFound, path);
    GError* error = nullptr;
    const auto program = Own(g_app_info_create_from_commandline(
        std::string(command).c_str(), nullptr, G_APP_INFO_CREATE_NONE, &error));
    if (program == nullptr) return Started(FALSE, error, path);
    // A missing program would only be noticed by the process that is to become it.
    const char* executable = g_app_info_get_executable(program.get());
    const GlibPointer<char> found(g_find_program_in_path(executable));
    if (found == nullptr) return CannotOpen(path, std::string(executable) + " is no program here.");
    const auto file = Own(g_file_new_for_path(paths_.ToNative(*truePath).c_str()));
    GList files{.data = file.get(), .next = nullptr, .prev = nullptr};
    const gboolean isStarted = g_app_info_launch(program.get(), &files, nullptr, &error);
    return Started(isStarted, error, path);
}

Result<void> NullLauncher::OpenDocument(std::string_view path) {
    return CannotOpen(path, "there is no desktop here.");
}

Result<void> NullLauncher::OpenWith(std::string_view, std::string_view path) {
    return CannotOpen(path, "there is no desktop here.");
}

} // namespace tarvix::platform
