#pragma once

#include <string>
#include <vector>

namespace tarvix::fields {
class Control;
class FrmOptions;
} // namespace tarvix::fields
namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::options {

// Whether the option isn't as in a new options file; the form must be open. An entry of a group is
// so when it is chosen and wouldn't be.
bool IsChanged(const fields::FrmOptions& form, const fields::Control& control);
// Sets it back to that; of a group all entries.
void ResetOption(session::Session& session, fields::Control& control);

// Fills `lstFound` with the options whose name, page, tip or key have all words of `txtFind`; none
// without a word. Changed ones are marked "(changed)", which is found, too.
void FindOptions(session::Session& session);
// How many options are changed.
void ShowChangedCount(session::Session& session);

// Sets the option back whose control is named by the path of the arguments.
constexpr const char* kResetOption = "frmOptions.ResetOption";
// Counts anew whenever an option is entered that has no routine of its own.
void CountChanges(session::EventTable& events);
// The events of the search box and of Reset.
void AddFindEvents(session::EventTable& events);

} // namespace tarvix::options
