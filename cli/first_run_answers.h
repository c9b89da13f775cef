#pragma once

#include "session/prompt_service.h"
#include "session/scripted_prompts.h"

#include <string>
#include <string_view>

namespace tarvix::cli {

// Passes every prompt on to scripted prompts, and answers those of the first run (OK, No, No) when
// no answer is queued for them.
class FirstRunAnswers : public session::PromptService {
  public:
    explicit FirstRunAnswers(session::ScriptedPrompts& inner) : inner_(inner) {}

    int MsgBox(std::string_view text, int style, std::string_view title) override;
    std::string InputBox(std::string_view text, std::string_view title,
                         std::string_view preset) override {
        return inner_.InputBox(text, title, preset);
    }
    void ShowModal(session::Session& session, fields::Form& form) override {
        inner_.ShowModal(session, form);
    }
    std::string PickFolder(std::string_view title) override { return inner_.PickFolder(title); }
    std::string PickFile(std::string_view title, std::string_view filters) override {
        return inner_.PickFile(title, filters);
    }

  private:
    session::ScriptedPrompts& inner_;
};

} // namespace tarvix::cli
