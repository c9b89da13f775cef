#pragma once

#include "session/prompt_record.h"

#include <vector>

namespace tarvix::testing {

// Fails the running test when one of them is not as the prompt table has it.
void ExpectListed(const std::vector<session::PromptRecord>& prompts);

} // namespace tarvix::testing
