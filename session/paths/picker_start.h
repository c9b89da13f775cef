#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {

struct Session;

// Where a picker begins that fills a box: the last of the folders that stand in it (separated by
// "|", native or drive paths, variables allowed), or the nearest above it that exists. A drive
// path; empty where there is none.
std::string PickerStart(Session& session, std::string_view typed);

} // namespace tarvix::session
