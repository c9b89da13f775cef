#include "actions/place/no_short_path.h"

#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"

#include <string>

namespace tarvix::actions {

void RefuseWithoutShortPath(session::Session& session, std::string_view path, std::size_t limit) {
    const std::string told = std::string(path) + "'s path exceeds " + std::to_string(limit) +
                             " characters in length AND the folder portion does not exist. "
                             "\r\n\r\nIt's actual length is : " +
                             std::to_string(text::Length(path)) +
                             " characters.\r\n\r\nWas unable to calculate a short path to "
                             "substitute. ";
    const bool isAutomatic = session.state.options.blnAutoMode;
    const std::string end =
        isAutomatic ? "Canceling the entire operation." : "Skipping this object.";
    session::TellAndLog(session, session::PromptId::kObjectUnshortened, told + end);
    session.state.bytPathChoice = isAutomatic ? session::kPathCancel : session::kPathSkip;
}

} // namespace tarvix::actions
