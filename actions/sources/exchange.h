#pragma once

#include "actions/sources/new_names.h"

#include <string>
#include <vector>

namespace tarvix::actions {

struct ActionRun;

// Why the objects of the selection can't get these names, in sentences for the user; empty when
// they can, as far as is known: each name can be one and isn't too long, no two objects want the
// same, and nothing else bears it. A name is whole, empty for an object that keeps its own.
std::string WhyNotExchanged(session::Session& session, const std::vector<std::string>& wanted);

// Gives each object its new name, also where another object of the selection bears it by now: that
// one makes room first, and in a ring one waits under a free name of its own. A ring that can't be
// closed is taken back. Nothing is ever replaced. `blnStopAction` takes effect between rings.
// WhyNotExchanged comes first.
SourceEnd RenameExchanged(session::Session& session, ActionRun& run,
                          const std::vector<std::string>& wanted);

} // namespace tarvix::actions
