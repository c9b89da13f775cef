#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Takes each selected object in list order; one whose destination exists already is left alone.
// Ends early when the user stops or the disk is full.
void SkipAllDuplicates(session::Session& session);

// The new path of one object: the destination and the object's name.
std::string ComputeDestination(const session::Session& session, std::string_view strName);

// Whether something of that name, a file or a folder, stands there.
bool DetermineIfDuplicateExists(session::Session& session, std::string_view strDestination);

} // namespace tarvix::actions
