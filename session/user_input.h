#pragma once

#include <expected>
#include <string>
#include <string_view>

namespace tarvix::fields {
class Control;
class Form;
} // namespace tarvix::fields

namespace tarvix::session {

struct Session;

// What a user does to one control, with the events that follow. Windows and scripts both come
// through here, so a disabled or hidden control refuses both with the same sentence.

// Nothing, or the sentence of the refusal, which names the control.
using InputResult = std::expected<void, std::string>;

// The press of a button or menu entry, the toggle of a box, the choice of an option: raises
// MouseDown, lets the control do what a press does to it, and raises Click.
InputResult UserClick(Session& session, fields::Control& control);

// Enters a value as Control::Enter takes it, and raises the event that follows.
InputResult UserSet(Session& session, fields::Control& control, std::string_view value);

// Sets an option back to what it is at first; refuses what is none.
InputResult UserReset(Session& session, const fields::Control& control);

// The rows that are selected have changed by what was done at a row (from 0), a row is opened, the
// head of a column is clicked. Whether the list may be used now is the caller's to ask; false when
// no routine stands behind it.
bool UserSelect(Session& session, int row);
bool UserOpen(Session& session, int row);
bool UserSort(Session& session, int column);
// The menu of the selected rows is asked for.
bool UserMenu(Session& session);

// The focus leaves the control: raises LostFocus.
void UserLeave(Session& session, fields::Control& control);

// Whether the control stops or skips what runs, and so acts while a routine does.
bool MayInterrupt(const fields::Control& control);

// Whether the control, and whatever holds it, can be used now; else why not.
InputResult CanUse(const fields::Control& control);

} // namespace tarvix::session
