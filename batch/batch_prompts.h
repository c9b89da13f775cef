#pragma once

#include "session/prompt_service.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::batch {

// Stands in for the user while a batch runs: every notice goes into the action log, every question
// gets its safe answer, which is logged and counted. As long as it lives the session asks it.
class BatchPrompts : public session::PromptService {
  public:
    explicit BatchPrompts(session::Session& session);
    ~BatchPrompts() override;
    BatchPrompts(const BatchPrompts&) = delete;
    BatchPrompts& operator=(const BatchPrompts&) = delete;

    // Questions up to now, notices left out.
    std::int64_t Answered() const { return answered_; }

    int MsgBox(const session::Prompt& prompt) override;
    std::string InputBox(const session::Prompt& prompt, std::string_view preset) override;
    void ShowModal(session::Session& session, fields::Form& form,
                   const session::Prompt& prompt) override;
    std::string PickFolder(const session::Prompt& prompt) override;
    std::string PickFile(const session::Prompt& prompt, std::string_view filters) override;
    std::string PickNewFile(const session::Prompt& prompt,
                            const session::NewFilePick& pick) override;

  private:
    void Log(const session::Prompt& prompt, std::string_view answer);

    session::Session& session_;
    session::PromptService* before_;
    std::int64_t answered_ = 0;
};

} // namespace tarvix::batch
