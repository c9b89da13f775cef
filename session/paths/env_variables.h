#pragma once

#include "session/settings/options.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {

struct Session;

// The path with its variables replaced by their values, and doubled "\" behind the first character
// made single. A text that is a real object stays as it is, with a line in the action log. The text
// itself comes back when a variable is unknown, and when the result would hold a second ":".
std::string RemoveEnvVarAndRestorePath(Session& session, std::string_view path);

// The path with the folder that it begins with as "%NAME%", by the first variable of the table that
// is included and fits (then by the short form of its folder); with `blnPreferSystemRoot` by
// "SystemRoot" before all. As it is for an address, a path that isn't on a drive of ours or begins
// with "%", and while `blnAutoEnvVar` is off.
std::string ConvertToEnvVar(Session& session, std::string_view path,
                            bool blnPreferSystemRoot = false);

// Whether programs of two widths have folders of their own here.
bool Is64BitSystem(Session& session);

// Builds `options.envVariables` anew from the variables that are folders. Those that are in it by
// name keep their place and their flag, new ones follow, and those that are gone are taken out.
void RebuildEnvVarTable(Session& session);

// "Include NAME 00" or "Exclude NAME 00" for each entry.
std::vector<std::string> EnvVariableLines(const Options& options);

} // namespace tarvix::session
