#pragma once

#include "generate/folder_names.h"

#include <memory>
#include <optional>
#include <string>

namespace tarvix::platform {
class TextStream;
}
namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// Which folders are to be made.
struct FolderPlan {
    NextName next{};
    std::string log{};  // of the action log, less the place
    std::string list{}; // the file that the names come from; empty for numbers
};

// Asks for a list of names, or for the numbers to count by. Nothing when the user cancelled.
std::optional<FolderPlan> AskFolderPlan(session::Session& session);

} // namespace tarvix::generate
