#pragma once

#include "session/prompt_service.h"

#include <string>
#include <utility>

namespace tarvix::actions {

// Answers for a preview: what only confirms is confirmed, everything else is left alone and noted.
class PreviewPrompts : public session::PromptService {
  public:
    int MsgBox(const session::Prompt& prompt) override;
    std::string InputBox(const session::Prompt&, std::string_view) override { return {}; }
    void ShowModal(session::Session& session, fields::Form& form,
                   const session::Prompt& prompt) override;
    std::string PickFolder(const session::Prompt&) override { return {}; }
    std::string PickFile(const session::Prompt&, std::string_view) override { return {}; }
    std::string PickNewFile(const session::Prompt&, const session::NewFilePick&) override {
        return {};
    }

    // What was asked since the last call.
    struct Asked {
        bool duplicate = false;
        bool longPath = false;
        bool isProtected = false;
    };
    Asked Take() { return std::exchange(asked_, {}); }
    // The last message that was only told.
    const std::string& LastTold() const { return lastTold_; }

  private:
    Asked asked_;
    std::string lastTold_;
};

} // namespace tarvix::actions
