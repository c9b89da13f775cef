#pragma once

namespace tarvix::session {
struct EventArgs;
struct Session;
} // namespace tarvix::session

namespace tarvix::options {

// Checks the columns of one quick group and unchecks the others; one that was added and costs a
// search time is told of.
void optQuickList_Click(session::Session& session, const session::EventArgs& args);
// A box of its own: no group is chosen any more.
void chkList_Click(session::Session& session, const session::EventArgs& args);

// Tells what it takes to see columns that were added, unless `blnNoColumnWarning`.
void AlertAboutColumnChange(session::Session& session);

// The line below the boxes, after what they and the options in force have.
void ShowColumnNote(session::Session& session);

} // namespace tarvix::options
