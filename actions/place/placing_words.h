#pragma once

#include "actions/place/engine.h"

#include <string>
#include <string_view>

namespace tarvix::actions {

// What is told of an object on its way, both paths as people read them: to the status line while it
// goes, and to the log, in front of the mode, once it is there.
void AppendPlacing(std::string& status, Verb verb, std::string_view source, std::string_view place);
std::string PlacedLine(Verb verb, std::string_view source, std::string_view place,
                       std::string_view mode);

} // namespace tarvix::actions
