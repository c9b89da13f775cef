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

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
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
            return std::unexpected("--drive " + std::string(1, letter) + "=" + path +
                                   " names no folder: give a drive a folder that exists.");
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

volatile std::sig_atomic_t interruption = 0; // the first signal that asked for the end

void NoteInterruption(int signal) {
    if (interruption == 0) interruption = signal;
}

} // namespace

int main(int argc, char** argv) {
    app::OpenStandardDescriptors();
    std::ios::sync_with_stdio(false);
    std::error_code ignored;
    Machine machine;
    cli::Host host{.in = std::cin, .out = std::cout, .err = std::cerr, .fillEvents = FillEvents};
    host.errIsTerminal = isatty(STDERR_FILENO) == 1;
    host.colour = host.errIsTerminal && std::getenv("NO_COLOR") == nullptr;
    host.currentFolder = std::filesystem::current_path(ignored).string();
    host.interrupted = [] { return static_cast<int>(interruption); };
    host.stopInOrder = [] { app::TakeEndingSignals(NoteInterruption); };
    host.edit = app::EditFile;
    host.open = [&](const cli::MachineRequest& request) {
        return Open(machine, host.currentFolder, request);
    };
    return cli::RunTarvixCli({argv + 1, argv + argc}, host);
}
