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

std::optional<Duplicate> FindDuplicate(platform::FileSystem& files, std::string_view destination) {
    std::string name = platform::StandingName(files, destination);
    if (name.empty()) return std::nullopt;
    std::string file = platform::DirName(files, destination, platform::kDirFiles);
    if (file.empty()) return Duplicate{std::move(name), false};
    return Duplicate{std::move(file), true};
}

std::optional<Duplicate> DetermineIfDuplicateExists(session::Session& session, const Object& object,
                                                    std::string& destination) {
    if (text::Length(destination) > session::kLongPath) {
        session::AskLongPath(session, object.path, destination, "DetermineIfDuplicateExists",
                             "frmDialog");
        if (!session::ContinuesLongPath(session)) return std::nullopt;
        auto shortened = session::GetShortPathNameReturnCodes(session, destination);
        destination = std::move(shortened.path);
        if (shortened.status < 2) {
            RefuseUnconverted(session, destination);
            return std::nullopt;
        }
    }
    return FindDuplicate(session.files(), destination);
}

} // namespace tarvix::actions
