#pragma once

#include "shortcuts/link_changes.h"

#include <string_view>
#include <vector>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::shortcuts {

// The selected shortcuts while they are edited as text, in the order of their records.
struct EditMode {
    std::vector<EditedLink> links;
};

// What became of writing the text.
enum class Opened { kOpened, kNothing, kFailed };

// Deselects the shortcuts without a target and writes the records of those that stay selected to
// `strTargetPathFile`.
Opened WriteTargetPathFile(session::Session& session, EditMode& mode);

// Puts the records in place as `strTargetPathFile`, whole; `routine` is the one whose error rule
// holds. After a failure the text that stood there stays.
bool SaveEditText(session::Session& session, std::string_view routine, std::string_view text);

// The button that begins the mode and saves, the menu entry that cancels it, and their windows.
void AddShortcutEvents(session::EventTable& events);

// Locks and frees the search form for the mode.
void DisableFormForLinkEdit(session::Session& session);
void ReEnableFormForLinkEdit(session::Session& session);

} // namespace tarvix::shortcuts
