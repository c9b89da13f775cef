#pragma once

#include "cli/host.h"

#include <optional>

namespace tarvix::session {
struct Session;
}

namespace tarvix::cli {

class CommandPrompts;
struct ActionRequest;

// In the action window for a list of names: has the user edit the present names, prints what would
// change, has it confirmed, and presses OK. The exit code where it was not pressed, and nothing is
// renamed then. A list that was edited for nothing is kept and told of.
std::optional<int> EditNames(Host& host, session::Session& session, CommandPrompts& prompts,
                             const ActionRequest& request);

} // namespace tarvix::cli
