#include "platform/linux/start_process.h"

#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
#include "platform/linux/unique_fd.h"
#include "platform/names.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {

// What would name a start that was ours.
constexpr std::array<std::string_view, 2> kOwnVariables{"DESKTOP_STARTUP_ID",
                                                        "XDG_ACTIVATION_TOKEN"};

// All that the new process needs, made before the fork: behind it nothing may ask for memory.
struct Prepared {
    std::string program;
    std::vector<char*> arguments;
    std::vector<std::string> variables;
    std::vector<char*> environment;
    const char* folder = nullptr;
    const char* home = nullptr;
};

bool IsVariable(std::string_view line, std::string_view name) {
    return line.starts_with(name) && line.substr(name.size()).starts_with('=');
}

std::vector<std::string> VariablesFor(const PlannedProcess& process) {
    std::vector<std::string> variables;
    for (char** variable = ::environ; variable != nullptr && *variable != nullptr; ++variable) {
        const std::string_view line = *variable;
        const auto isNamed = [line](std::string_view name) { return IsVariable(line, name); };
        const bool isReplaced = std::ranges::any_of(
            process.variables, [&](const auto& given) { return isNamed(given.first); });
        if (!isReplaced && std::ranges::none_of(kOwnVariables, isNamed)) {
            variables.emplace_back(line);
        }
    }
    for (const auto& [name, value] : process.variables)
        variables.push_back(fmt::format("{}={}", name, value));
    return variables;
}

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str())); // NOLINT: as exec takes them
    pointers.push_back(nullptr);
    return pointers;
}

void ForgetSignals() {
    struct sigaction usual {};
    usual.sa_handler = SIG_DFL;
    for (int signal = 1; signal < NSIG; ++signal)
        (void)::sigaction(signal, &usual, nullptr);
    sigset_t none;
    sigemptyset(&none);
    (void)::sigprocmask(SIG_SETMASK, &none, nullptr);
}

// Keeps `report`, which the start of the program closes.
void LeaveDescriptors(int report) {
    const int nothing = ::open("/dev/null", O_RDWR);
    for (int standard = STDIN_FILENO; standard <= STDERR_FILENO; ++standard)
        (void)::dup2(nothing, standard);
    const auto first = static_cast<unsigned>(STDERR_FILENO + 1);
    if (::close_range(first, ~0U, CLOSE_RANGE_CLOEXEC) == 0) return;
    for (int open = STDERR_FILENO + 1; open < ::sysconf(_SC_OPEN_MAX); ++open) {
        if (open != report) ::close(open);
    }
}

// In the new process: becomes the program, or writes down why not.
[[noreturn]] void Become(const Prepared& prepared, int report) {
    ForgetSignals();
    LeaveDescriptors(report);
    if (::chdir(prepared.folder) != 0 && ::chdir(prepared.home) != 0) (void)!::chdir("/");
    ::execve(prepared.program.c_str(), prepared.arguments.data(), prepared.environment.data());
    const int error = errno;
    (void)!::write(report, &error, sizeof error);
    ::_exit(EXIT_FAILURE);
}

// A child of a child belongs to nobody who would have to wait for it.
[[noreturn]] void BecomeOrphan(const Prepared& prepared, int report) {
    ::setsid();
    const pid_t process = ::fork();
    if (process == 0) Become(prepared, report);
    const int error = process < 0 ? errno : 0;
    if (error != 0) (void)!::write(report, &error, sizeof error);
    ::_exit(EXIT_SUCCESS);
}

// The errno that was reported; 0 when the program runs.
int ReportedError(int report) {
    int error = 0;
    ssize_t count = 0;
    do {
        count = ::read(report, &error, sizeof error);
    } while (count < 0 && errno == EINTR);
    return count == static_cast<ssize_t>(sizeof error) ? error : 0;
}

void WaitFor(pid_t child) {
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

std::unexpected<PlatformError> CannotStart(const std::string& program, int error) {
    return Failure(kPermissionDenied, fmt::format("{} can't be started: {}.",
                                                  NativeForDisplay(program), std::strerror(error)));
}

} // namespace

std::string FindProgram(const std::string& name) {
    const GlibPointer<char> found(TX_GIO(g_find_program_in_path)(name.c_str()));
    return found == nullptr ? std::string() : found.get();
}

Result<void> StartProcess(const PlannedProcess& process, const std::string& home) {
    const std::string& name = process.arguments.front();
    Prepared prepared{.program = FindProgram(name)};
    if (prepared.program.empty()) return CannotStart(name, ENOENT);
    prepared.arguments = Pointers(process.arguments);
    prepared.variables = VariablesFor(process);
    prepared.environment = Pointers(prepared.variables);
    prepared.folder = process.folder.c_str();
    prepared.home = home.c_str();
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) return CannotStart(name, errno);
    const UniqueFd told(ends[0]);
    UniqueFd report(ends[1]);
    const pid_t child = ::fork();
    if (child == 0) BecomeOrphan(prepared, report.Get());
    if (child < 0) return CannotStart(name, errno);
    report.Reset();
    const int error = ReportedError(told.Get());
    WaitFor(child);
    if (error != 0) return CannotStart(name, error);
    return {};
}

} // namespace tarvix::platform
