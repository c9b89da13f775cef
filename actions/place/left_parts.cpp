#include "actions/place/left_parts.h"

#include "platform/file_system.h"
#include "session/session.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::actions {

void LeftParts::RemoveAround(session::Session& session, std::string_view path) {
    const std::string_view folder = text::GetParentFolderName(path);
    if (folder == last_) return;
    last_ = folder;
    if (seen_.contains(folder)) return;
    seen_.emplace(folder);
    const auto removed = session.files().RemoveAbandoned(folder);
    // A folder that can't be read says so when something is done in it.
    if (!removed) return;
    for (const std::string& part : *removed) {
        session::LogTimed(session,
                          fmt::format(" Removed {}, a part of a copy that an ended run left.",
                                      session.Shown(part)));
    }
    session.state.lastAction.leftParts += static_cast<std::int64_t>(removed->size());
}

bool LeftParts::HasSeenAround(std::string_view path) const {
    const std::string_view folder = text::GetParentFolderName(path);
    return folder == last_ || seen_.contains(folder);
}

} // namespace tarvix::actions
