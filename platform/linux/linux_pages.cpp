#include "platform/linux/linux_pages.h"

#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
#include "platform/linux/unique_fd.h"

#include <fmt/core.h>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <signal.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace tarvix::platform {

namespace {

struct Unref {
    void operator()(gpointer object) const { TX_GIO(g_object_unref)(object); }
};
using AppInfo = std::unique_ptr<GAppInfo, Unref>;

AppInfo DefaultApplication() {
    return AppInfo(TX_GIO(g_app_info_get_default_for_uri_scheme)("http"));
}

std::string ReadSmall(int folder, const std::string& name) {
    const UniqueFd file(::openat(folder, name.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) return {};
    std::string text(256, '\0');
    const ssize_t count = ::read(file.Get(), text.data(), text.size());
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text;
}

// The kernel keeps 15 bytes of a program's name.
std::string KernelName(std::string_view executable) {
    constexpr std::size_t kKept = 15;
    return std::string(executable.substr(executable.rfind('/') + 1).substr(0, kKept));
}

// Whether a process of this user bears the name of that program.
bool IsRunning(std::string_view executable) {
    const std::string wanted = fmt::format("{}\n", KernelName(executable));
    const std::unique_ptr<DIR, int (*)(DIR*)> processes(::opendir("/proc"), ::closedir);
    if (!processes) return false;
    while (const dirent* entry = ::readdir(processes.get())) {
        const std::string name = entry->d_name;
        if (name.front() < '0' || name.front() > '9') continue;
        struct stat facts {};
        const int folder = ::dirfd(processes.get());
        if (::fstatat(folder, name.c_str(), &facts, 0) != 0 || facts.st_uid != ::getuid()) continue;
        if (ReadSmall(folder, fmt::format("{}/comm", name)) == wanted) return true;
    }
    return false;
}

// A signal of the terminal that we were started in is none of the browser's business.
void LeaveOurSession(gpointer) {
    ::setsid();
}

void KeepProcess(GDesktopAppInfo*, GPid process, gpointer kept) {
    *static_cast<pid_t*>(kept) = process;
}

// Whether the child has ended; then it is waited for.
bool HasEnded(pid_t child) {
    pid_t ended = 0;
    do {
        ended = ::waitpid(child, nullptr, WNOHANG);
    } while (ended < 0 && errno == EINTR);
    return ended != 0;
}

std::unexpected<PlatformError> CannotShow(std::string_view address, const char* why) {
    return Failure(kPermissionDenied,
                   fmt::format("Nothing could be started to show {}: {}", address,
                               why != nullptr ? why : "no reason given."));
}

} // namespace

LinuxPages::~LinuxPages() {
    if (browser_ != 0) (void)HasEnded(browser_);
    WaitForLeft();
}

PageBrowser LinuxPages::Default() {
    const AppInfo application = DefaultApplication();
    if (!application) return {};
    const char* name = TX_GIO(g_app_info_get_display_name)(application.get());
    const char* executable = TX_GIO(g_app_info_get_executable)(application.get());
    const bool isDesktop = IsDesktopEntry(application.get());
    const bool isActivated = isDesktop && TX_GIO(g_desktop_app_info_get_boolean)(
                                              AsDesktopEntry(application.get()), "DBusActivatable");
    return {.name = name != nullptr && *name != '\0' ? name : "its browser",
            .endsPages =
                isDesktop && !isActivated && executable != nullptr && !IsRunning(executable)};
}

Result<void> LinuxPages::Open(std::string_view address) {
    WaitForLeft();
    if (browser_ != 0 && HasEnded(browser_)) browser_ = 0;
    const AppInfo application = DefaultApplication();
    if (!application) return CannotShow(address, "this desktop has no default browser.");
    std::string held(address);
    GList addresses{.data = held.data(), .next = nullptr, .prev = nullptr};
    GError* error = nullptr;
    if (!IsDesktopEntry(application.get())) {
        const gboolean isStarted =
            TX_GIO(g_app_info_launch_uris)(application.get(), &addresses, nullptr, &error);
        const GlibPointer<GError> owned(error);
        if (isStarted) return {};
        return CannotShow(address, error != nullptr ? error->message : nullptr);
    }
    pid_t started = 0;
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
    const gboolean isStarted = TX_GIO(g_desktop_app_info_launch_uris_as_manager)(
        AsDesktopEntry(application.get()), &addresses, nullptr, flags, LeaveOurSession, nullptr,
        KeepProcess, &started, &error);
    const GlibPointer<GError> owned(error);
    if (!isStarted) return CannotShow(address, error != nullptr ? error->message : nullptr);
    browser_ = started;
    return {};
}

bool LinuxPages::Close() {
    if (browser_ == 0) return false;
    const pid_t browser = std::exchange(browser_, 0);
    // One that has ended handed its page to another, which is left alone.
    if (HasEnded(browser) || ::kill(browser, SIGTERM) != 0) return false;
    if (closing_ != 0) left_.push_back(closing_);
    closing_ = browser;
    return true;
}

bool LinuxPages::IsClosing() {
    if (closing_ != 0 && HasEnded(closing_)) closing_ = 0;
    return closing_ != 0;
}

void LinuxPages::WaitForLeft() {
    (void)IsClosing();
    std::erase_if(left_, HasEnded);
}

} // namespace tarvix::platform
