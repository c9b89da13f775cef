#include "cli/first_run_answers.h"

#include "cli/messages.h"
#include "session/message_style.h"
#include "session/prompt_id.h"
#include "session/prompt_table.h"

namespace tarvix::cli {

int FirstRunAnswers::MsgBox(const session::Prompt& prompt) {
    using session::PromptId;
    if (prompt.id == PromptId::kDataFolderUnwritable || prompt.id == PromptId::kLogUnwritable) {
        Tell(host_, prompt.text);
        return session::SafeAnswer(prompt.style);
    }
    const bool isFirstRun = session::FactsOf(prompt.id).role == session::PromptRole::kFirstRun;
    if (isFirstRun && !inner_.HasQueued()) {
        inner_.Queue(std::string(session::CaptionOf(session::SafeAnswer(prompt.style))));
    }
    return inner_.MsgBox(prompt);
}

} // namespace tarvix::cli
