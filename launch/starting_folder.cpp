#include "launch/starting_folder.h"

#include "session/paths/env_variables.h"
#include "session/session.h"

namespace tarvix::launch {

std::string StartingFolder(session::Session& session) {
    const auto& folder = session.state.options.strDefSearchFolder.front();
    std::string path = session::RemoveEnvVarAndRestorePath(session, folder);
    constexpr std::size_t kRoot = 3; // "C:\"
    if (path.size() > kRoot && path.ends_with('\\')) path.pop_back();
    return path;
}

} // namespace tarvix::launch
