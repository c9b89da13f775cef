#pragma once

#include "session/prompt.h"

#include <string_view>

namespace tarvix::session {

struct Session;

// What automatic mode keeps from the user. Each takes a notice of the prompt table.

// Tells it; in automatic mode nothing.
void TellUnlessAuto(Session& session, PromptId id, std::string_view text);

// Tells it; in automatic mode the text goes into the action log instead, behind the time.
void TellOrLog(Session& session, PromptId id, std::string_view text);

// Tells it unless in automatic mode, and in either mode logs it behind the time and a blank.
void TellAndLog(Session& session, PromptId id, std::string_view text);

} // namespace tarvix::session
