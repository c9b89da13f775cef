// The headless front: this machine, and the commands of `cli/`.
#include "app/edit_file.h"
#include "app/process.h"
#include "app/program.h"
#include "app/saved_drives.h"
#include "cli/host.h"
#include "platform/launcher.h"
#include "platform/linux/linux_platform.h"
#include "session/lifecycle/help.h"
#include "session/session.h"

#include <fmt/core.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

using namespace tarvix;

using Machine = std::unique_ptr<platform::LinuxPlatform>;

// A native path is relative to the folder that the process was started in.
std::string Absolute(const std::string& folder, const std::string& path) {
    const bool isDrivePath = path.size() > 1 && path[1] == ':';
    if (isDrivePath) return path;
    return (std::filesystem::path(folder) / path).lexically_normal().string();
}

std::expected<platform::Platform, std::string> Open(Machine& machine, const std::string& folder,
                                                    const cli::MachineRequest& request) {
    platform::LinuxOptions options{.now = request.now};
    if (request.dataFolder) options.dataFolder = Absolute(folder, *request.dataFolder);
    for (const auto& [letter, path] : request.drives) {
        const std::string native = Absolute(folder, path);
        if (!std::filesystem::is_directory(native)) {
            return std::unexpected(fmt::format(
                "--drive {}={} names no folder: give a drive a folder that exists.", letter, path));
        }
        options.extraDrives.push_back({letter, native});
    }
    app::AddSavedDrives(options);
    machine = std::make_unique<platform::LinuxPlatform>(std::move(options));
    return machine->Parts();
}

// What a first start would open by itself needs somebody who reads it.
void FillEvents(session::EventTable& events) {
    app::FillEvents(events);
    events.On(std::string(lifecycle::kShowHelp),
              [](session::Session& session, const session::EventArgs& args) {
                  if (!session.state.blnStarted) return;
                  const auto opened = session.platform.launcher.OpenDocument(args.path);
                  if (opened) return;
                  session.frmSearch.lblStatus.Caption = session.Shown(opened.error());
              });
}

volatile std::sig_atomic_t interruption = 0;     // the first signal that asked for the end
std::atomic<const char*> interruptNote{nullptr}; // told then, where somebody sees it
static_assert(std::atomic<const char*>::is_always_lock_free);

// In the handler itself, since a slow disk may keep the program from coming round to it.
void NoteInterruption(int signal) {
    if (interruption == 0) interruption = signal;
    const char* note = interruptNote.exchange(nullptr);
    if (signal != SIGINT || note == nullptr) return;
    const int before = errno;
    for (const char* text : {"\n", note, "\n"})
        (void)!write(STDERR_FILENO, text, std::strlen(text));
    errno = before;
}

// Escapes are for terminals that say what they are.
bool ObeysEscapes() {
    const char* kind = std::getenv("TERM");
    return kind != nullptr && *kind != 0 && std::strcmp(kind, "dumb") != 0;
}

int TerminalWidth() {
    constexpr int kUsual = 80;
    winsize size{};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : kUsual;
}

void SetUpTerminals(tarvix::cli::Host& host) {
    const bool errIsTerminal = isatty(STDERR_FILENO) == 1;
    host.errIsTerminal = errIsTerminal && ObeysEscapes();
    host.outIsTerminal = isatty(STDOUT_FILENO) == 1;
    host.colour = host.errIsTerminal && std::getenv("NO_COLOR") == nullptr;
    host.terminalWidth = TerminalWidth;
    if (!errIsTerminal) return;
    host.sayWhenInterrupted = [](const char* note) {
        if (interruption == 0) interruptNote = note;
    };
}

} // namespace

int main(int argc, char** argv) {
    app::KeepMemory();
    app::OpenStandardDescriptors();
    std::ios::sync_with_stdio(false);
    std::error_code ignored;
    Machine machine;
    cli::Host host{.in = std::cin, .out = std::cout, .err = std::cerr, .fillEvents = FillEvents};
    SetUpTerminals(host);
    host.currentFolder = std::filesystem::current_path(ignored).string();
    host.interrupted = [] { return static_cast<int>(interruption); };
    host.stopInOrder = [] { app::TakeEndingSignals(NoteInterruption); };
    host.edit = app::EditFile;
    host.open = [&](const cli::MachineRequest& request) {
        return Open(machine, host.currentFolder, request);
    };
    return cli::RunTarvixCli({argv + 1, argv + argc}, host);
}
