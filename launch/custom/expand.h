#pragma once

#include "launch/custom/chosen.h"
#include "launch/custom/entry.h"
#include "platform/applications.h"

#include <expected>
#include <string>
#include <vector>

namespace tarvix::custom {

// The processes that an entry starts for the objects, by the rules of its dialect: one for all, or
// one for each. Those that are to run in a terminal are marked so in the entry alone. Else a
// sentence that tells why it can't be done.
std::expected<std::vector<platform::PlannedProcess>, std::string>
Expand(const EntryCommand& command, const Chosen& chosen);

// A label with codes in it, as "Open %b", for the objects.
std::string ExpandLabel(Dialect dialect, const std::string& label, const Chosen& chosen);

} // namespace tarvix::custom
