#pragma once

#include "app/program.h"
#include "cli/host.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

#include <expected>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace tarvix::cli {

// The whole front on a machine in memory that has run before. Streams are texts.
class CliFixture : public ::testing::Test {
  protected:
    CliFixture() {
        machine.disk.UseClock([this] { return machine.clock.FromLocal({2025, 6, 1, 12, 0, 0}); });
        machine.disk.AddFile(HistoryFile(), "*EOF");
    }

    platform::MemoryFileSystem& Disk() { return machine.disk; }
    std::string HistoryFile() const {
        return machine.environment.programFolder + "\\TXFSSearchHistoryFile.txt";
    }

    // Gives the exit code; the streams hold what this call wrote.
    int Run(const std::vector<std::string>& arguments) {
        out.str("");
        err.str("");
        Host host{.in = in,
                  .out = out,
                  .err = err,
                  .fillEvents = app::FillEvents,
                  .errIsTerminal = isTerminal,
                  .outIsTerminal = isOutTerminal,
                  .currentFolder = "/home/ann"};
        host.edit = edit;
        host.terminalWidth = [this] { return terminalWidth; };
        host.interrupted = [this] { return interrupted; };
        host.open =
            [this](const MachineRequest&) -> std::expected<platform::Platform, std::string> {
            return machine.platform;
        };
        return RunTarvixCli(arguments, host);
    }
    int RunScript(const std::string& script) {
        in.clear();
        in.str(script);
        return Run({"run", "-"});
    }
    std::string Out() const { return out.str(); }
    std::string Err() const { return err.str(); }

    // What stands in for the user's editor; takes a native path.
    std::function<std::expected<void, std::string>(const std::string&)> edit;
    bool isTerminal = false;
    bool isOutTerminal = false;
    int terminalWidth = 80;
    int interrupted = 0; // by that signal
    platform::MemoryPlatform machine;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
};

} // namespace tarvix::cli
