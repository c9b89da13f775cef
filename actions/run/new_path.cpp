#include "actions/run/new_path.h"

#include "actions/place/no_short_path.h"
#include "platform/names.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::actions {

namespace {

using session::Session;

bool FitsOrShortens(Session& session, const RenamedObject& object, std::string& path) {
    if (!session::ExceedsLimit(session, path, session::kLongPath)) return true;
    session::AskLongPath(session, object.path, path, object.routine, "frmDialog");
    bool isShort = false;
    if (session::ContinuesLongPath(session)) {
        auto shortened = session::GetShortPathNameReturnCodes(session, path);
        isShort = shortened.status >= 2;
        if (isShort) path = std::move(shortened.path);
        if (!isShort) RefuseWithoutShortPath(session, path, session::kLongPath);
    }
    session.state.blnPathLimitHit = false;
    return isShort;
}

// A path whose last piece is no name has no form of this machine as a whole.
std::string ShownBeside(const Session& session, std::string_view parent, std::string_view name) {
    std::string shown = session.Shown(parent);
    if (!shown.ends_with('/') && !shown.ends_with('\\')) {
        shown += shown.starts_with('/') ? '/' : '\\';
    }
    return shown + platform::ForDisplay(name);
}

} // namespace

bool CanUseNewPath(Session& session, const RenamedObject& object, std::string& path) {
    const std::string_view name = std::string_view(path).substr(object.parent.size());
    if (platform::CanBeName(name)) return FitsOrShortens(session, object, path);
    if (!name.empty()) {
        session::TellAndLog(
            session, session::PromptId::kRenameNoName,
            fmt::format("Could not rename: \r\n\r\n{}\r\n\r\n as: \r\n\r\n{}\r\n\r\nNo {} can "
                        "have such a name.",
                        session.Shown(object.path), ShownBeside(session, object.parent, name),
                        object.isFile ? "file" : "folder"));
        return false;
    }
    session::TellAndLog(session, session::PromptId::kRenameEmpty,
                        fmt::format("Could not rename: \r\n\r\n{}\r\n\r\nNothing would "
                                    "be left of the name.",
                                    session.Shown(object.path)));
    return false;
}

} // namespace tarvix::actions
