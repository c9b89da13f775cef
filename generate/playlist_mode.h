#pragma once

#include <cstddef>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::generate {

// Loads a playlist with its possible duplicates into the list, or the one that is loaded anew.
void mnuTools_LoadPlayList_Click(session::Session& session);

// Back to the list of a search: empty, with all that the playlist had hidden.
void mnuPlayListWarning_Click(session::Session& session);

// Marks a row of the loaded playlist as a file that stays and gets the Year-Rank of its group, or
// takes that back; either way it is no longer selected.
void ToggleReplacement(session::Session& session, std::size_t row);

// Tells in the banner what the playlist holds and what is marked in it.
void ShowBanner(session::Session& session);

// The menu entry and the buttons of the mode, and a double click on its rows.
void AddPlaylistEvents(session::EventTable& events);

} // namespace tarvix::generate
