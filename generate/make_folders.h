#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// Asks which folders are to be made in the folder of the action window, and makes them. What is
// taken or refused is recorded one by one and told once at the end.
void MakeFolders(session::Session& session);

// Opens the action window for that.
void mnuTools_MakeFolders_Click(session::Session& session);

} // namespace tarvix::generate
