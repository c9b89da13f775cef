#pragma once

#include "session/prompt.h"

#include <string>
#include <string_view>

namespace tarvix::fields {
class Form;
}

namespace tarvix::session {

struct Session;

// Answers of a message box, numbered as the routines test them.
enum Answer : int {
    kOk = 1,
    kCancel = 2,
    kAbort = 3,
    kRetry = 4,
    kIgnore = 5,
    kYes = 6,
    kNo = 7,
    // Of a question about one of many objects: skips this one and all with the same trouble, or
    // ends the action. The routine that asks is given an answer of its style instead.
    kSkipAll = 8,
    kStopAll = 9,
};

// The parts of a style number: buttons + icon + default button.
enum Style : int {
    kOkOnly = 0,
    kOkCancel = 1,
    kAbortRetryIgnore = 2,
    kYesNoCancel = 3,
    kYesNo = 4,
    kRetryCancel = 5,
    kCritical = 16,
    kQuestion = 32,
    kExclamation = 48,
    kInformation = 64,
    kSecondDefault = 256,
    kThirdDefault = 512,
};

// What a picker of a new file shows at first.
struct NewFilePick {
    std::string_view filters;     // "Text Files (*.txt)|*.txt|"
    std::string_view name;        // of the file
    int filter = 0;               // the one that is chosen, from 0
    std::string_view folder = {}; // in drive form; empty for the last one
};

// The one way by which the logic asks the user. Whoever shows it is not the logic's business.
class PromptService {
  public:
    virtual ~PromptService() = default;
    // A message with the buttons of its style; gives the button that was pressed. Closing the box
    // counts as Cancel or No where there is one, else as OK.
    virtual int MsgBox(const Prompt& prompt) = 0;
    // Empty when the user cancelled, as for an empty answer.
    virtual std::string InputBox(const Prompt& prompt, std::string_view preset) = 0;
    // Shows the form and returns when it hides. Its controls raise their events meanwhile.
    virtual void ShowModal(Session& session, fields::Form& form, const Prompt& prompt) = 0;
    // A folder in drive form; empty when the user cancelled.
    virtual std::string PickFolder(const Prompt& prompt) = 0;
    // An existing file in drive form; `filters` as "Text Files (*.txt)|*.txt|".
    virtual std::string PickFile(const Prompt& prompt, std::string_view filters) = 0;
    // A file to be written, which may exist, in drive form; empty when the user cancelled. It isn't
    // asked whether to replace it.
    virtual std::string PickNewFile(const Prompt& prompt, const NewFilePick& pick) = 0;
    // Whether several questions about one thing are better put in one form.
    virtual bool PrefersForms() const { return false; }
};

} // namespace tarvix::session
