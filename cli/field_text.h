#pragma once

#include <cstddef>
#include <string>

namespace tarvix::cli {

// Each of what stands in `text` from `begin` on.

// As one field of tab-separated values: a backslash is "\\", a tab "\t", a line feed "\n", a
// carriage return "\r". All other bytes stay.
void EscapeTsvField(std::string& text, std::size_t begin);

// So that a terminal can't take it for a command: control characters and bytes that are no text are
// "\t", "\n", "\r" or "\x1B". All else stays, backslashes too.
void EscapeForTerminal(std::string& text, std::size_t begin);

} // namespace tarvix::cli
