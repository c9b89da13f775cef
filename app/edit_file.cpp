#include "app/edit_file.h"

#include <fmt/core.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvix::app {

namespace {

// While it lives these signals are the editor's.
class SignalsAside {
  public:
    SignalsAside() {
        struct sigaction ignored {};
        ignored.sa_handler = SIG_IGN;
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            sigaction(kSignals[i], &ignored, &before_[i]);
    }
    ~SignalsAside() {
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            sigaction(kSignals[i], &before_[i], nullptr);
    }
    SignalsAside(const SignalsAside&) = delete;
    SignalsAside& operator=(const SignalsAside&) = delete;

    static constexpr std::array kSignals{SIGINT, SIGQUIT};

  private:
    std::array<struct sigaction, kSignals.size()> before_{};
};

std::string EditorCommand() {
    for (const char* name : {"VISUAL", "EDITOR"}) {
        const char* command = std::getenv(name);
        if (command != nullptr && *command != '\0') return command;
    }
    for (const char* program : {"/usr/bin/sensible-editor", "/usr/bin/editor"}) {
        if (access(program, X_OK) == 0) return program;
    }
    return "vi";
}

// The process of the editor; an error number where none could be started.
std::expected<pid_t, int> Start(std::string command, std::string file) {
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t usual;
    sigemptyset(&usual);
    for (const int signal : SignalsAside::kSignals)
        sigaddset(&usual, signal);
    posix_spawnattr_setsigdefault(&attributes, &usual);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    // The variable may hold switches, so the shell takes it apart.
    command += " \"$1\"";
    std::string shell = "sh";
    std::string commandSwitch = "-c";
    std::array<char*, 6> words{shell.data(), commandSwitch.data(), command.data(),
                               shell.data(), file.data(),          nullptr};
    pid_t process = 0;
    const int error = posix_spawn(&process, "/bin/sh", nullptr, &attributes, words.data(), environ);
    posix_spawnattr_destroy(&attributes);
    if (error != 0) return std::unexpected(error);
    return process;
}

} // namespace

std::expected<void, std::string> EditFile(const std::string& file) {
    const std::string command = EditorCommand();
    const SignalsAside aside;
    const auto process = Start(command, file);
    if (!process) {
        return std::unexpected(fmt::format("The editor \"{}\" could not be started: {}.", command,
                                           std::strerror(process.error())));
    }
    int status = 0;
    while (waitpid(*process, &status, 0) < 0) {
        if (errno != EINTR) return std::unexpected("The editor's end could not be waited for.");
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
    const std::string how = WIFEXITED(status)
                                ? fmt::format("ended with {}", WEXITSTATUS(status))
                                : fmt::format("was ended by signal {}", WTERMSIG(status));
    return std::unexpected(fmt::format("The editor \"{}\" {}.", command, how));
}

} // namespace tarvix::app
