#pragma once

#include "fields/forms.h"
#include "platform/error.h"
#include "platform/platform.h"
#include "session/action_log.h"
#include "session/error_log.h"
#include "session/event_table.h"
#include "session/prompt_service.h"
#include "session/session_state.h"
#include "session/yielder.h"
#include "text/dates.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace tarvix::results {
class OutcomeList;
class ResultList;
struct Selection;
} // namespace tarvix::results

namespace tarvix::platform {
class Clipboard;
}

namespace tarvix::session {

class InputRecorder;

// All that a routine needs: state, windows as fields, the machine, and the user. Made by whoever
// composes the program; a test makes as many as it likes.
struct Session {
    Session(const platform::Platform& machine, PromptService& promptService);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    platform::Platform platform;
    PromptService& prompts;
    PromptService* standIn = nullptr;         // asked in place of `prompts` while there is one
    InputRecorder* recorder = nullptr;        // told what the user does, while there is one
    platform::Clipboard* clipboard = nullptr; // of the desktop, where the front has one
    SessionState state;
    fields::Forms forms;
    fields::FrmSearch& frmSearch;
    fields::FrmDialog& frmDialog;
    EventTable events;
    Yielder yielder;
    ActionLog log;
    ErrorLog errorLog;

    // Owned by the program; set before the first event.
    results::ResultList* rows = nullptr;
    results::Selection* selection = nullptr;
    results::OutcomeList* outcomes = nullptr; // null: nobody looks at them
    // Visible columns, by their index.
    std::array<bool, kVisibilityCount>& blnListItems = state.options.blnListItems;

    platform::FileSystem& files() { return platform.files; }
    void Yield() {
        yielder.Yield();
        if (!state.strLogTrouble.empty()) TellLogTrouble();
    }
    // The first write to a log that failed is told by the next yield, and no other.
    void NoteLogTrouble(const platform::PlatformError& error);
    // Tells it at once, if it wasn't told yet.
    void TellLogTrouble();
    // Shows what changed at once: long routines call it where a window would repaint.
    void Repaint() { yielder.PumpNow(); }
    text::DateTime Now();
    const std::string& TimeText(); // "mm/dd/yyyy hh:mm:ss"

    // A drive path (any other text, too; a rule or pattern of paths) as people read it: in the form
    // that `PathForm` names, its carried characters as themselves, bytes that are no text as \xNN.
    std::string Shown(std::string_view path) const;
    // The sentence of an error, with its path as people read it.
    std::string Shown(const platform::PlatformError& error) const;

    // Raises "FORM.CONTROL_EVENT"; gives whether a routine stood behind it. `isRepeat`: the choice
    // was made already.
    bool Raise(const fields::Control& control, std::string_view event, bool isRepeat = false);

    // The prompts of the table, with its style and title. `MsgBox` gives the button that was
    // pressed, the pickers a path in drive form, or nothing when the user cancelled.
    // `plain` leads a window's box where the text speaks of routines; scripts have the text. `verb`
    // is what its button that goes ahead says. In a loop over objects, what was answered for all
    // like this is not asked again.
    int MsgBox(PromptId id, std::string_view text, std::string_view plain = {},
               std::string_view verb = {});
    // Shows the form of that prompt, and returns when it hides.
    void ShowModal(PromptId id);
    // `start` is where the picker begins, in drive form; empty for where the last one ended.
    std::string PickFolder(PromptId id, std::string_view start = {});
    std::string PickFile(PromptId id, std::string_view filters, std::string_view start = {});
    std::string PickNewFile(PromptId id, const NewFilePick& pick);
    // What was typed; empty when the user cancelled.
    std::string InputBox(PromptId id, std::string_view text, std::string_view preset);

  private:
    PromptService& Asked();
    int AskInLoop(Prompt& prompt);
    // Notes the answer for whoever records, unless nobody was asked.
    std::string Noted(std::string answer);

    text::DateTime toldTime_;
    std::string toldTimeText_;
};

} // namespace tarvix::session
