#pragma once

#include "cli/request.h"
#include "platform/platform.h"

#include <expected>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace tarvix::session {
class EventTable;
}

namespace tarvix::cli {

// What the headless front needs of the process that it runs in.
struct Host {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    // Puts the routines of all subsystems into the event table of a program.
    void (*fillEvents)(session::EventTable& events);
    bool errIsTerminal = false; // one that obeys escapes
    bool outIsTerminal = false; // of any kind
    bool colour = false;        // on stderr
    std::string currentFolder;  // native
    bool verbose = false;       // tells each of equal failures
    std::string progress;       // the line of progress that stands on the terminal; empty for none
    // How many characters a line of the terminal has.
    std::function<int()> terminalWidth = [] { return 80; };
    // The signal that asked the process to stop, 0 for none; asked every few milliseconds in long
    // loops.
    std::function<int()> interrupted = [] { return 0; };
    // What a terminal is told at once when it interrupts: a text that lives for ever.
    std::function<void(const char*)> sayWhenInterrupted = [](const char*) {};
    // Called before a program starts: from here on a signal ends nothing by itself.
    std::function<void()> stopInOrder = [] {};
    // Has the user edit a file (native path) in a text editor and waits for that; a failure is a
    // sentence.
    std::function<std::expected<void, std::string>(const std::string& file)> edit;
    // Opens the machine, once; a failure is a sentence. The platform lives as long as the host.
    std::function<std::expected<platform::Platform, std::string>(const MachineRequest&)> open;
};

// The whole front: reads the arguments (without the program's name), does what they ask, and gives
// the exit code.
int RunTarvixCli(const std::vector<std::string>& arguments, Host& host);

} // namespace tarvix::cli
