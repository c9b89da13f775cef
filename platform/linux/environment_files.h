#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// The lines of a file of variables as "NAME=value", quotes and backslashes taken away. Comments and
// what is no such line are passed over.
std::vector<std::string> VariableLines(std::string_view text);

// The same with "$NAME" and "${NAME}" replaced by what `known` has of them ("NAME=value", the first
// counts), or by nothing.
std::vector<std::string> ExpandedLines(std::string_view text,
                                       const std::vector<std::string>& known);

// Appends what the system's file of variables has, then those of the user's settings folder (native
// path) in the order of their names; missing ones have nothing.
void AppendStoredVariables(std::vector<std::string>& variables, const std::string& settings);

} // namespace tarvix::platform
