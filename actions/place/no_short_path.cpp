#include "actions/place/no_short_path.h"

#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <string>

namespace tarvix::actions {

namespace {

void RefuseObject(session::Session& session, session::PromptId id, const std::string& told) {
    const bool isAutomatic = session.state.options.blnAutoMode;
    session::TellAndLog(
        session, id,
        told + (isAutomatic ? "Canceling the entire operation." : "Skipping this object."));
    session.state.bytPathChoice = isAutomatic ? session::kPathCancel : session::kPathSkip;
}

} // namespace

void RefuseWithoutShortPath(session::Session& session, std::string_view path, std::size_t limit) {
    RefuseObject(session, session::PromptId::kObjectUnshortened,
                 fmt::format("{}'s path exceeds {} characters in length AND the folder portion "
                             "does not exist. \r\n\r\nIt's actual length is : {} characters."
                             "\r\n\r\nWas unable to calculate a short path to substitute. ",
                             session.Shown(path), limit, text::Length(path)));
}

void RefuseUnconverted(session::Session& session, std::string_view path) {
    RefuseObject(session, session::PromptId::kDuplicateUnshortened,
                 fmt::format("{}'s path exceeds 259 characters in length. You may be exceeding 500 "
                             "characters. \r\n\r\nLength of path shown above is : {} characters."
                             "\r\n\r\nPath above maybe partly converted to a short path. Possibly "
                             "all required folders could not be created.",
                             session.Shown(path), text::Length(path)));
}

} // namespace tarvix::actions
