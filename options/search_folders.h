#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::options {

// Shows the chosen one of the default search folders in the two boxes.
void ShowChosenFolder(session::Session& session);
// Each folder as it is to be kept: native paths in drive form, the pieces of a list cleaned.
void CleanFolders(session::Session& session);

// False, told and shown, when the options file could not hold one of them.
bool CheckFolders(session::Session& session);

// The events of the default search folders.
void AddSearchFolderEvents(session::EventTable& events);

} // namespace tarvix::options
