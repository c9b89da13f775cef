#pragma once

#include "session/prompt_record.h"
#include "session/prompt_service.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {
class NativePaths;
}

namespace tarvix::session {

// Thrown when a prompt found no answer, and when the queued answer is none that it offers. Routines
// let both pass, so that nothing further is done; only a front catches them.
struct PromptUnanswered {
    PromptRecord prompt;
};
struct PromptMisanswered {
    PromptRecord prompt;
    std::string why; // a sentence that names the answer and what would have been right
};

// Answers from a queue: a button caption for a message ("Yes", without regard to case or "&"), the
// text for an input box or picker, a control name or button caption for a modal form, which is then
// clicked as a user would. frmSelectDate also takes "DATE" and "DATE thru DATE".
class ScriptedPrompts : public PromptService {
  public:
    // What an unqueued prompt does: throws, or is answered as an unattended one.
    enum class Fallback { kThrow, kSafe };
    // Acts inside a modal form that has no answer queued. False when it has nothing more to do,
    // though the form still shows.
    using ModalRunner = std::function<bool(Session&, fields::Form&)>;

    // An answer for the next prompt that finds none before it.
    void Queue(std::string answer) { queue_.push_back(std::move(answer)); }
    // Whether an answer waits.
    bool HasQueued() const { return !queue_.empty(); }
    // kThrow at first.
    void SetFallback(Fallback fallback) { fallback_ = fallback; }
    // An empty runner takes it away.
    void SetModalRunner(ModalRunner runner) { runner_ = std::move(runner); }
    // Pickers then take native paths too. `paths` must outlive this.
    void SetPaths(const platform::NativePaths& paths) { paths_ = &paths; }
    // Every prompt up to now, in the order in which they were put.
    const std::vector<PromptRecord>& Records() const { return records_; }

    int MsgBox(const Prompt& prompt) override;
    std::string InputBox(const Prompt& prompt, std::string_view preset) override;
    void ShowModal(Session& session, fields::Form& form, const Prompt& prompt) override;
    std::string PickFolder(const Prompt& prompt) override;
    std::string PickFile(const Prompt& prompt, std::string_view filters) override;
    std::string PickNewFile(const Prompt& prompt, const NewFilePick& pick) override;

  private:
    // Keeps the record and gives its index.
    std::size_t Note(const Prompt& prompt, PromptKind kind, std::string form = {});
    // The next answer to that record. Without one: nothing if the fallback answers, else
    // PromptUnanswered.
    std::optional<std::string> Take(std::size_t record);
    std::string TakeText(std::size_t record);
    std::string TakePath(std::size_t record);
    void AnswerForm(Session& session, fields::Form& form, std::size_t record);
    [[noreturn]] void Misanswered(std::size_t record, std::string why) const;

    std::deque<std::string> queue_;
    std::vector<PromptRecord> records_;
    Fallback fallback_ = Fallback::kThrow;
    ModalRunner runner_;
    const platform::NativePaths* paths_ = nullptr;
};

} // namespace tarvix::session
