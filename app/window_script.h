#pragma once

#include "results/program.h"

namespace tarvix::app {

// Gives the window its Run a Script: asks for the file and runs it. A question that the script
// doesn't answer, and a window that it leaves open, are the user's. The program must outlive its
// session's events.
void AddScriptEvents(results::Program& program);

} // namespace tarvix::app
