#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {

struct Session;

// What was typed into the three boxes, kept in one file each as pairs of lines: the entry and the
// time of its last use. A missing file is made. What an open file lacks at its end is told (62). A
// damaged file is asked about: Yes ends the program at once (`blnEnded`), so that it can be mended;
// No sends it to the trash and begins it anew.
void OpenSearchHistoryFile(Session& session);
void OpenFolderHistoryFile2(Session& session); // search locations
void OpenDestHistoryFile2(Session& session);   // destinations, of the action window

// Each takes in what another running copy has written meanwhile, then replaces its file. After a
// failure, which is told, the old file stands.
void SaveSearchHistoryFile(Session& session);
void SaveFolderHistoryFile2(Session& session);
void SaveDestHistoryFile2(Session& session);

// The text of the box was used now: its row is dated, or a row is added, in place of the one that
// was used longest ago when the list is full. Fixed rows and default folders get no row.
void UpdateSearchHistory(Session& session);
void UpdateFolderHistory(Session& session);
void UpdateDestHistory(Session& session);

// The destination that was used last; empty without a history.
std::string NewestDestination(Session& session);

// Puts the titles of default search folders above the history of the search locations.
void ShowTitledFolders(Session& session, const std::vector<std::string>& titles);

// Takes the character at `position` (from 1) out of `text`; with `blnBlank` a blank takes its
// place, except at the ends. True when there is nothing to do.
bool RemoveCharAt(std::size_t position, std::string& text, bool blnBlank);

} // namespace tarvix::session
