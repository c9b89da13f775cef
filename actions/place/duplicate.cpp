#include "actions/place/duplicate.h"

#include "actions/place/no_short_path.h"
#include "actions/place/object.h"
#include "platform/dir.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/characters.h"

#include <utility>

namespace tarvix::actions {

std::expected<platform::FreePlace, Duplicate> FindDuplicate(platform::FileSystem& files,
                                                            std::string_view destination) {
    platform::Standing standing = platform::WhatStands(files, destination);
    if (standing.IsFree()) return std::move(standing.place);
    return std::unexpected(Duplicate{std::move(standing.name), !standing.isFolder});
}

std::expected<platform::FreePlace, Duplicate> DetermineIfDuplicateExists(session::Session& session,
                                                                         const Object& object,
                                                                         std::string& destination) {
    if (session::ExceedsLimit(session, destination, session::kLongPath)) {
        session::AskLongPath(session, object.path, destination, "DetermineIfDuplicateExists",
                             "frmDialog");
        if (!session::ContinuesLongPath(session)) return platform::FreePlace{destination, nullptr};
        auto shortened = session::GetShortPathNameReturnCodes(session, destination);
        destination = std::move(shortened.path);
        if (shortened.status < 2) {
            RefuseUnconverted(session, destination);
            return platform::FreePlace{destination, nullptr};
        }
    }
    return FindDuplicate(session.files(), destination);
}

} // namespace tarvix::actions
