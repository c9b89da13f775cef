#pragma once

#include "cli/host.h"
#include "session/prompt_id.h"
#include "session/prompt_service.h"
#include "session/scripted_prompts.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tarvix::fields {
class Control;
}

namespace tarvix::cli {

// The prompts of one command: notices go to stderr and need no answer, questions take the queued
// answers of the inner prompts. The first-run notice is answered as by FirstRunAnswers.
class CommandPrompts : public session::PromptService {
  public:
    using FormFiller = std::function<void(session::Session&)>;

    // What has changed since the search stays, and is told of.
    CommandPrompts(session::ScriptedPrompts& inner, Host& host) : inner_(inner), host_(host) {
        AnswerMessage(session::PromptId::kChangedSinceSearch, false);
    }
    ~CommandPrompts() override { TellRepeated(); }
    CommandPrompts(const CommandPrompts&) = delete;
    CommandPrompts& operator=(const CommandPrompts&) = delete;

    // Before this no form of a notice is told, and what the start can't read is not tried again.
    void BeginRequest() { begun_ = true; }
    // Gives each confirmation, and tells of objects that failed instead of asking whether to try
    // them again.
    void ConfirmActions() { confirmed_ = true; }
    // Nothing is asked: a question that finds no queued answer gets the one that goes on without
    // harm, which is told.
    void NeverAsk() { neverAsks_ = true; }
    // Fills in the action window and presses a button in it, once it shows.
    void SetDialogFiller(FormFiller filler) { filler_ = std::move(filler); }
    // Answers the form of that prompt by that button of it whenever it shows.
    void AnswerForm(session::PromptId form, const fields::Control& button);
    // Answers the input box of that prompt, each time.
    void AnswerInput(session::PromptId id, std::string text) { inputs_[id] = std::move(text); }
    // Answers the picker of that prompt by a path in drive form.
    void AnswerPick(session::PromptId id, std::string path) { inputs_[id] = std::move(path); }
    // Answers the message of that prompt by its first button and tells nothing, or by the safe one,
    // which tells it.
    void AnswerMessage(session::PromptId message, bool affirms);
    // Tells how many failures were like one that was told; of those no more is said.
    void TellRepeated();
    // How many notices told of an object that was passed over.
    int SkippedObjects() const { return skippedObjects_; }

    int MsgBox(const session::Prompt& prompt) override;
    std::string InputBox(const session::Prompt& prompt, std::string_view preset) override;
    void ShowModal(session::Session& session, fields::Form& form,
                   const session::Prompt& prompt) override;
    std::string PickFolder(const session::Prompt& prompt) override;
    std::string PickFile(const session::Prompt& prompt, std::string_view filters) override;
    std::string PickNewFile(const session::Prompt& prompt,
                            const session::NewFilePick& pick) override;

  private:
    // A failure in full; an equal one that follows is counted unless the host is verbose.
    void TellFailure(const session::Prompt& prompt);
    void TellUnasked(const session::Prompt& prompt, int answer);

    session::ScriptedPrompts& inner_;
    Host& host_;
    FormFiller filler_;
    std::map<session::PromptId, std::string> formButtons_; // by name
    std::map<session::PromptId, std::string> inputs_;
    std::map<session::PromptId, bool> messages_; // whether each is affirmed
    std::map<session::PromptId, int> repeated_;  // failures after the first, by prompt
    bool begun_ = false;
    bool confirmed_ = false;
    bool neverAsks_ = false;
    int skippedObjects_ = 0;
};

} // namespace tarvix::cli
