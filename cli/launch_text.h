#pragma once

#include "cli/host.h"

namespace tarvix::launch {
struct Opened;
}

namespace tarvix::cli {

// Tells on stdout what would be started: each process as a shell reads it, what the session bus
// would be asked, the address that would be shown; or as JSON, an object a line.
void PrintLaunch(Host& host, const launch::Opened& opened, bool asJson);

} // namespace tarvix::cli
