#pragma once

#include "actions/place/action_request.h"
#include "actions/place/left_parts.h"
#include "platform/file_system.h"
#include "session/paths/shown_folders.h"

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

class OutcomeSink;

// The buttons of frmAsk, by answer.
enum AskAnswer : std::uint8_t {
    kAskSkip,
    kAskOverwrite,
    kAskRename,
    kAskSkipAll,
    kAskOverwriteAll,
    kAskRenameAll,
    kAskCancel,
    kAskDeleteReplace,
    kAskDeleteReplaceAll,
};

// The buttons of frmOverrideDialog and frmOverrideRecycleFail, by answer.
enum OverrideAnswer : std::uint8_t {
    kOverrideNo,
    kOverrideYes,
    kOverrideNoToAll,
    kOverrideYesToAll,
    kOverrideCancel,
};

// How often a Special Rule came to which end.
struct RuleTally {
    int intRuleOk = 0;
    int intRuleNoFolder = 0;
    int intRuleShortSearch = 0;
    int intRuleShortReplace = 0;
    bool blnRuleFailed = false; // of any object
};

// One run of an action: its request, and what is kept from object to object.
struct ActionRun {
    // Takes over the answers that stand in the prompts. `request` must outlive it.
    ActionRun(session::Session& session, const ActionRequest& request, OutcomeSink* sink = nullptr);

    const ActionRequest& request;
    OutcomeSink* sink; // may be null
    std::uint8_t bytAskAnswer;
    std::uint8_t bytOverrideAnswer;
    // What of an object must be as the search saw it; only its name once the user said to go on.
    platform::Same same = platform::Same::kObject;
    LeftParts leftParts;
    // The places, in upper case, that this run filled and that a later object could overwrite.
    std::unordered_set<std::string> placed;
    RuleTally rule;
    std::vector<std::string> strCDDrives; // "E:"; attributes are never written there
    platform::CopyObserver observer;      // of each copy; yields
    // Folders that were made to find out about the request, the topmost first; those that still
    // stand here at the end of OK came to nothing.
    std::vector<std::string> madeFolders = {};
    // Sources and places as people read them, where one follows another.
    session::ShownFolders shownSources;
    session::ShownFolders shownPlaces;
    std::string status = {}; // what was told last of the object in hand
};

} // namespace tarvix::actions
