#pragma once

#include "session/prompt_record.h"
#include "session/prompt_service.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {

// Nobody is there: every message gets its safe answer, every input and picker is cancelled, every
// form is closed by its Cancel, else by its OK.
class UnattendedPrompts : public PromptService {
  public:
    // Every prompt up to now, in the order in which they were put.
    const std::vector<PromptRecord>& Records() const { return records_; }

    int MsgBox(const Prompt& prompt) override;
    std::string InputBox(const Prompt& prompt, std::string_view preset) override;
    void ShowModal(Session& session, fields::Form& form, const Prompt& prompt) override;
    std::string PickFolder(const Prompt& prompt) override;
    std::string PickFile(const Prompt& prompt, std::string_view filters) override;
    std::string PickNewFile(const Prompt& prompt, const NewFilePick& pick) override;

  private:
    std::vector<PromptRecord> records_;
};

// Clicks the form's Cancel, else its OK, and hides it if it still shows. Gives the name of what
// was clicked.
std::string CloseUnattended(Session& session, fields::Form& form);

} // namespace tarvix::session
