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

// Whether the destination box takes a key; "*" and "|" only where a Special Rule is typed.
bool TakesKey(char key, bool isRule);
// A text without the characters that the box refuses. Native paths ("/x", "~/x", "file://x") stay
// whole, less quotes around them, until they are turned into drive form.
std::string FilterEntry(std::string_view text, bool isRule);

// The duplicate choice that each change of `optTo` goes back to: to be asked, or in automatic mode
// to skip (for a move) or rename.
void ResetDuplicateChoice(session::Session& session);
// Brings the fields that depend on a choice in line with it.
void ShowDuplicateFields(session::Session& session);   // what makes a duplicate's name unique
void ShowRenameFields(session::Session& session);      // find and replace, or insert
void ShowDestinationFields(session::Session& session); // by `optTo`, for copies and moves

void AddDestinationEvents(session::EventTable& events);

} // namespace tarvix::actions
