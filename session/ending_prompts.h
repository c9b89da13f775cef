#pragma once

#include "session/prompt_service.h"
#include "session/unattended_prompts.h"

#include <functional>
#include <string>
#include <string_view>

namespace tarvix::session {

// The prompts of a front until the process is asked to end. From then on nobody is there: every
// prompt gets the answer of UnattendedPrompts.
class EndingPrompts : public PromptService {
  public:
    // `isEnding` is asked at each prompt. `tell` takes the text of each that is answered so. All
    // must outlive this.
    EndingPrompts(PromptService& inner, std::function<bool()> isEnding,
                  std::function<void(std::string_view)> tell = {})
        : inner_(inner), isEnding_(std::move(isEnding)), tell_(std::move(tell)) {}

    int MsgBox(const Prompt& prompt) override;
    std::string InputBox(const Prompt& prompt, std::string_view preset) override;
    void ShowModal(Session& session, fields::Form& form, const Prompt& prompt) override;
    std::string PickFolder(const Prompt& prompt) override;
    std::string PickFile(const Prompt& prompt, std::string_view filters) override;
    std::string PickNewFile(const Prompt& prompt, const NewFilePick& pick) override;
    bool PrefersForms() const override { return inner_.PrefersForms(); }

  private:
    // Who answers this one.
    PromptService& ServiceFor(const Prompt& prompt);

    PromptService& inner_;
    UnattendedPrompts unattended_;
    std::function<bool()> isEnding_;
    std::function<void(std::string_view)> tell_;
};

} // namespace tarvix::session
