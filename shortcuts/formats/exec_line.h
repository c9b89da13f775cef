#pragma once

#include <string>
#include <string_view>

namespace tarvix::shortcuts {

// The escapes of all values of a desktop entry: "\s", "\n", "\t", "\r", "\\". Another "\" stays.
std::string UnescapeValue(std::string_view stored);
std::string EscapeValue(std::string_view value);

// The value of Exec, its escapes undone.
struct ExecLine {
    std::string program;   // the first argument, its quotes off
    std::string stored;    // the same as it stands there
    std::string arguments; // the rest as it stands there
};
// All empty for an empty value.
ExecLine SplitExec(std::string_view exec);
// A program as the first argument of Exec, in quotes where it needs them.
std::string QuoteProgram(std::string_view program);

} // namespace tarvix::shortcuts
