#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// What the destination box can't take, told where a text is pasted into it.
constexpr std::string_view kPasteNotice =
    "When pasting into a combobox only 255 characters get pasted, although single paths upto 259 "
    "characters can be used. Your choices are: 1. Use the Browse button. 2.Type the folder "
    "location fully. 3. Make an MPL file and load that.";

// Whether the destination box takes a key that makes its text `entry`: no path with "\" between
// its folders has / " ? < or >, and "*" and "|" stand in a Special Rule alone. Native paths ("/x",
// "~/x", "file://x") may hold all. A whole text that is pasted or set is taken as it is, and told
// of at OK.
bool TakesKey(char key, bool isRule, std::string_view entry = {});

// The duplicate choice that each change of `optTo` goes back to: to be asked, or in automatic mode
// to skip (for a move) or rename.
void ResetDuplicateChoice(session::Session& session);
// Brings the fields that depend on a choice in line with it.
void ShowDuplicateFields(session::Session& session);   // what makes a duplicate's name unique
void ShowRenameFields(session::Session& session);      // find and replace, or insert
void ShowDestinationFields(session::Session& session); // by `optTo`, for copies and moves

// The choices of the action window, its destination box and that box's browse button.
void AddDestinationEvents(session::EventTable& events);

} // namespace tarvix::actions
