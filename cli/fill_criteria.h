#pragma once

#include "cli/request.h"
#include "session/scripted_prompts.h"
#include "session/user_input.h"

#include <string>
#include <vector>

namespace tarvix::cli {

// Enters the criteria into frmSearch as a user would, with the events that follow; `locations` are
// drive paths. Dates are answered through `prompts`, whose queue is empty before and after. A
// failure is the sentence of the control that refused.
session::InputResult FillCriteria(session::Session& session, session::ScriptedPrompts& prompts,
                                  const Criteria& criteria,
                                  const std::vector<std::string>& locations);

} // namespace tarvix::cli
