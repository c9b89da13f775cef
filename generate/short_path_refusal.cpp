#include "generate/short_path_refusal.h"

#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"

#include <fmt/core.h>

namespace tarvix::generate {

void RefuseUnshortened(session::Session& session, std::string_view path) {
    const std::string told =
        fmt::format("{}'s path exceeds 259 characters in length AND the folder portion does not "
                    "exist. \r\n\r\nIt's actual length is : {} characters.\r\n\r\nWas unable to "
                    "calculate a short path to substitute. ",
                    path, text::Length(path));
    const bool isAutomatic = session.state.options.blnAutoMode;
    session::TellOrLog(
        session, session::PromptId::kListUnshortened,
        told + (isAutomatic ? "Canceling the entire operation." : "Skipping this object."));
}

} // namespace tarvix::generate
