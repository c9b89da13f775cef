#pragma once

#include "actions/sources/name_list.h"
#include "session/prompt_id.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::actions {

// Tells why a source can't be used, and logs it.
void TellUnusable(session::Session& session, session::PromptId id, std::string_view told);

// Whether there is a file of that path; otherwise it was told.
bool HasSourceFile(session::Session& session, const std::string& strFile);

// The lines of a list before its mark. Nothing when it can't be read or has no mark, which was
// told; a missing mark is added for the next time. With `needsLines` so is a list that is empty.
std::optional<std::vector<std::string>> ReadSourceList(session::Session& session,
                                                       const std::string& strFile, bool needsLines);

} // namespace tarvix::actions
