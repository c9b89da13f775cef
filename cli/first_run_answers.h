#pragma once

#include "cli/host.h"
#include "session/prompt_service.h"
#include "session/scripted_prompts.h"

#include <string>
#include <string_view>

namespace tarvix::cli {

// Passes every prompt on to scripted prompts, and answers those of the first run (OK, No, No) when
// no answer is queued for them. That nothing can be logged or saved is told on stderr and takes no
// answer.
class FirstRunAnswers : public session::PromptService {
  public:
    FirstRunAnswers(session::ScriptedPrompts& inner, Host& host) : inner_(inner), host_(host) {}

    int MsgBox(const session::Prompt& prompt) override;
    std::string InputBox(const session::Prompt& prompt, std::string_view preset) override {
        return inner_.InputBox(prompt, preset);
    }
    void ShowModal(session::Session& session, fields::Form& form,
                   const session::Prompt& prompt) override {
        inner_.ShowModal(session, form, prompt);
    }
    std::string PickFolder(const session::Prompt& prompt) override {
        return inner_.PickFolder(prompt);
    }
    std::string PickFile(const session::Prompt& prompt, std::string_view filters) override {
        return inner_.PickFile(prompt, filters);
    }
    std::string PickNewFile(const session::Prompt& prompt,
                            const session::NewFilePick& pick) override {
        return inner_.PickNewFile(prompt, pick);
    }

  private:
    session::ScriptedPrompts& inner_;
    Host& host_;
};

} // namespace tarvix::cli
