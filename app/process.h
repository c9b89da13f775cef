#pragma once

#include <array>
#include <csignal>

namespace tarvix::app {

// What asks the process to end in order: at the next object, with its logs closed.
inline constexpr std::array kEndingSignals{SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGXFSZ};

// Has `handler` take them. A second SIGINT, SIGTERM or SIGHUP ends the process at once; a SIGHUP
// that is ignored stays so.
void TakeEndingSignals(void (*handler)(int));

// Opens those of the descriptors 0 to 2 that are closed on /dev/null, the wrong way round, so that
// no file gets their number and what is written to them fails instead of seeming done.
void OpenStandardDescriptors();

// For a process that does one job and ends: memory that it frees stays its own, and what it needs
// of it first, beyond that of a small job, comes in large pages where the machine has some. Nothing
// is different if it has none.
void KeepMemory();

// For a process whose lists are sorted again and again: the room of one sort, some of which would
// be given back to the system each time, stays for the next. Fresh memory costs as much as the
// sort.
void KeepSortingRoom();

// What the process ends with after that signal.
constexpr int ExitCodeAfter(int signal) {
    return 128 + signal;
}

} // namespace tarvix::app
