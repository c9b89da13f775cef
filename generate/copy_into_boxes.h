#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// The folders of the selected objects into the box of the search locations, and their names into
// the box of the search strings, each with "|" behind it.
void mnuTools_BypassMPL_Click(session::Session& session);
void mnuTools_NewSearchFor_Click(session::Session& session);

} // namespace tarvix::generate
