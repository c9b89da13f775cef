#include "session/tell.h"

#include "session/prompt_id.h"
#include "session/session.h"
#include "text/characters.h"

#include <utility>

namespace tarvix::session {

void TellUnlessAuto(Session& session, PromptId id, std::string_view text) {
    if (!session.state.options.blnAutoMode) session.MsgBox(id, text);
}

void TellOrLog(Session& session, PromptId id, std::string_view text) {
    if (session.state.options.blnAutoMode) {
        LogTimed(session, text);
    } else {
        session.MsgBox(id, text);
    }
}

void TellAndLog(Session& session, PromptId id, std::string_view text) {
    TellUnlessAuto(session, id, text);
    LogTimed(session, text::Concat({" ", text}));
}

void Session::TellLogTrouble() {
    const std::string trouble = std::exchange(state.strLogTrouble, {});
    if (!trouble.empty()) TellUnlessAuto(*this, PromptId::kLogUnwritable, trouble);
}

} // namespace tarvix::session
