#pragma once

#include "session/prompt_service.h"

#include <string>
#include <utility>

namespace tarvix::actions {

// Answers for a preview: what only confirms is confirmed, everything else is left alone and noted.
class PreviewPrompts : public session::PromptService {
  public:
    int MsgBox(std::string_view text, int style, std::string_view title) override;
    std::string InputBox(std::string_view, std::string_view, std::string_view) override {
        return {};
    }
    void ShowModal(session::Session& session, fields::Form& form) override;
    std::string PickFolder(std::string_view) override { return {}; }
    std::string PickFile(std::string_view, std::string_view) override { return {}; }

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
