#pragma once

#include "session/prompt_record.h"

#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::testing {

// Whether this run judges nothing but what people are shown: each program works on a machine with
// native paths, whose prompts and captions may hold no drive path. What else the tests expect is
// told of a machine with drives, and doesn't count. So it is where TARVIX_SHOWN_PATHS names the
// suite; the process then ends with 0 if no drive path was shown, and each prompt that this suite
// must raise with a path was raised so.
bool JudgesShownPaths();

// Looks at what one program has shown; in any other run nothing.
void JudgeShown(const session::Session& session, const std::vector<session::PromptRecord>& prompts);

} // namespace tarvix::testing
