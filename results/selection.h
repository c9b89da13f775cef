#pragma once

#include "platform/seen_object.h"
#include "results/text_store.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// The selected rows, in list order, as the actions need them. One entry a row in every table. Most
// texts are pieces of one path, kept once in `texts`.
struct Selection {
    TextStore texts;
    std::vector<std::string_view> strSelName;
    std::vector<std::string_view> strSelPath; // Path\Name
    std::vector<bool> blnSelIsFile;
    std::vector<std::string_view> strSelRelPath;    // Path\Name below the search location
    std::vector<std::string_view> strSelActualPath; // the path to hand to the file system
    std::vector<bool> blnSelNoDate;
    std::vector<platform::Sighting> sightings; // as the search saw them; may hold fewer
    std::int64_t lngSelTop = -1;               // the count less 1
    std::int64_t lngSelBytes = 0;              // of the files
    std::int64_t intSelAnchor = -1;
    std::string strSelAnchorName;
    // Objects were renamed and stand here under their new names, but not in the list.
    bool isRenamed = false;
};

// Fills the tables from the selected rows and sets the counters of the selection. A spacer that is
// selected is unselected.
void BuildFileArray(session::Session& session);

// The counters alone, without the tables; cheap enough for every click in the list. Gives how many
// rows are selected.
std::int64_t CountSelection(session::Session& session);

// Selects every row but the spacers, says so in the log and sets the counters, without the tables:
// for who builds them next. Gives how many.
std::int64_t SelectAllRows(session::Session& session);

// Each selects rows by its rule, never a spacer, and builds the tables anew.
void cmdSelectAll_Click(session::Session& session);
void cmdSelectAllDirs_Click(session::Session& session);
void cmdSelectAllFiles_Click(session::Session& session);
void cmdSelectNone_Click(session::Session& session);
void cmdSelectReverse_Click(session::Session& session);

// A click on a row of the list, from 0.
void lstMain_ItemClick(session::Session& session, std::size_t row);

// Empties the list and sets the counters and what depends on it to their idle state.
void ClearList(session::Session& session);

} // namespace tarvix::results
