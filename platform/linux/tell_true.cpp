#include "platform/linux/tell_true.h"

#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
#include "platform/linux/unique_fd.h"

#include <chrono>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>

namespace tarvix::platform {

namespace {

constexpr std::chrono::milliseconds kPatience{1000};
constexpr std::size_t kMostSaid = 4096;

// What it says until it has nothing more to say or the time is up.
std::string Said(int fd) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    std::string said;
    while (said.size() < kMostSaid) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        pollfd waiting{.fd = fd, .events = POLLIN, .revents = 0};
        if (left.count() <= 0 || poll(&waiting, 1, static_cast<int>(left.count())) <= 0) return {};
        char bytes[256];
        const ssize_t got = read(fd, bytes, sizeof bytes);
        if (got <= 0) break;
        said.append(bytes, static_cast<std::size_t>(got));
    }
    return said;
}

} // namespace

bool SaysTrue(const std::string& commandLine) {
    char** words = nullptr;
    if (TX_GIO(g_shell_parse_argv)(commandLine.c_str(), nullptr, &words, nullptr) == FALSE)
        return false;
    const std::unique_ptr<char*, decltype(&g_strfreev)> held(words, TX_GIO(g_strfreev));
    GPid process = 0;
    int out = -1;
    constexpr auto kFlags =
        static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD |
                                 G_SPAWN_STDERR_TO_DEV_NULL | G_SPAWN_CLOEXEC_PIPES);
    if (TX_GIO(g_spawn_async_with_pipes)(nullptr, words, nullptr, kFlags, nullptr, nullptr,
                                         &process, nullptr, &out, nullptr, nullptr) == FALSE) {
        return false;
    }
    const UniqueFd fd(out);
    const std::string said = Said(fd.Get());
    kill(process, SIGKILL);
    int status = 0;
    waitpid(process, &status, 0);
    return said.substr(0, said.find_last_not_of(" \r\n") + 1) == "true";
}

} // namespace tarvix::platform
