#include "cli/first_run_answers.h"

#include "session/message_style.h"
#include "session/prompt_table.h"

namespace tarvix::cli {

int FirstRunAnswers::MsgBox(const session::Prompt& prompt) {
    const bool isFirstRun = session::FactsOf(prompt.id).role == session::PromptRole::kFirstRun;
    if (isFirstRun && !inner_.HasQueued()) {
        inner_.Queue(std::string(session::CaptionOf(session::SafeAnswer(prompt.style))));
    }
    return inner_.MsgBox(prompt);
}

} // namespace tarvix::cli
