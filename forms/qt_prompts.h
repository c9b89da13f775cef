#pragma once

#include "forms/event_gate.h"
#include "session/prompt_service.h"

#include <QString>

namespace tarvix::platform {
struct Platform;
}

namespace tarvix::forms {

// Asks in windows above the one that is in front.
class QtPrompts : public session::PromptService {
  public:
    QtPrompts(EventGate& gate, const platform::Platform& machine)
        : gate_(gate), machine_(machine) {}

    int MsgBox(const session::Prompt& prompt) override;
    std::string InputBox(const session::Prompt& prompt, std::string_view preset) override;
    void ShowModal(session::Session& session, fields::Form& form,
                   const session::Prompt& prompt) override;
    std::string PickFolder(const session::Prompt& prompt) override;
    std::string PickFile(const session::Prompt& prompt, std::string_view filters) override;
    std::string PickNewFile(const session::Prompt& prompt,
                            const session::NewFilePick& pick) override;
    bool PrefersForms() const override { return true; }

  private:
    std::string Picked(const QString& path);

    EventGate& gate_;
    const platform::Platform& machine_;
    QString lastFolder_;
};

// "Text Files (*.txt)|*.txt|" as "Text Files (*.txt)", each pair on a line of its own with ";;"
// between, several patterns separated by blanks.
QString FilterList(std::string_view filters);

} // namespace tarvix::forms
