#pragma once

#include "platform/error.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// The key `Exec` of a desktop entry with what its codes stand for; all in native form.
struct ExecLine {
    std::string exec;
    std::string name;      // %c
    std::string icon;      // %i
    std::string entryFile; // %k
};

// The words of a command line as a shell parts them, nothing else of a shell's rules; 5 when a
// quote is not closed or there is no word.
Result<std::vector<std::string>> SplitCommand(std::string_view command);

// The address of a native path; an address stays what it is.
std::string AddressOf(const std::string& file);
// Whether a line has a code for addresses.
bool TakesAddresses(std::string_view exec);

// The arguments of each process that opens files with an entry: one for all with %F or %U, else one
// for each file; a line that has no code for files gets them at its end. Paths fill %f and %F,
// addresses %u and %U; a file that is given by its address is only for these. Without files the
// line runs once. 5 for a line that can't be read.
Result<std::vector<std::vector<std::string>>> ExpandExec(const ExecLine& line,
                                                         std::span<const std::string> files);

// The arguments of a command with files: as an entry's line, but all of them go to the end of one
// that has no code for files.
Result<std::vector<std::vector<std::string>>> ExpandCommand(std::string_view command,
                                                            std::span<const std::string> files);

} // namespace tarvix::platform
