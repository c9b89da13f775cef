#pragma once

#include "shortcuts/edit_mode.h"

namespace tarvix::shortcuts {

// Puts the shortcuts of the mode into the table.
void FillTable(session::Session& session, const EditMode& mode);
// Shows the table as it was left; at its end the text of the mode has what stands there. False when
// the user cancelled, or the text could not be written (told).
bool EditInTable(session::Session& session, const EditMode& mode);

// The buttons of the table, and of the list of changes.
void AddLinkTableEvents(session::EventTable& events);
void AddLinkChangesEvents(session::EventTable& events);

} // namespace tarvix::shortcuts
