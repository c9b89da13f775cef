#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// The first of the search locations as they stand in their box, without a final "\".
std::string FirstLocation(const session::Session& session);

// What the destination box is to read for the action in force: what it has while the action stays
// the same, else `name` ("\New Playlist.m3u") in the first search location. A remembered
// destination takes the place of that folder.
std::string ProposedFile(const session::Session& session, std::string_view name);

// The same for a playlist; a batch names it by its search and the present time.
std::string ProposedPlaylist(session::Session& session);

} // namespace tarvix::generate
