#pragma once

#include "fields/controls.h"
#include "results/columns.h"

#include <cstdint>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

class ResultList;

enum class Ties { kByExactText, kAsTheyStood };

// Puts the rows in the text order of one column's cells, without regard to case; rows that are
// equal so by exact text, and then as they stood. There must be no spacers.
void SortRows(ResultList& rows, Column key, fields::SortDirection direction,
              Ties ties = Ties::kByExactText);

// Deletes every spacer.
void RemoveSpacers(ResultList& rows);

// Puts a spacer wherever the text of `column` changes between two rows, case not counted. Gives the
// number of groups, 1 for an empty list.
std::int64_t GrouplstMain(ResultList& rows, Column column);

// Sets how many groups the list has, in the state and in its counter.
void ShowGroups(session::Session& session, std::int64_t groups);

// What the end of a search does with its rows: sorted by the list's column, and grouped unless
// `chkFastSort` is set.
void ArrangeFoundRows(session::Session& session);

// The same once more with the rows that stand, and their groups alone; not those of a playlist,
// whose order says what belongs together.
void RearrangeRows(session::Session& session);
void RegroupRows(session::Session& session);

// A click on a column's head: sorts by it, or turns the order of the column that is sorted already.
void lstMain_ColumnClick(session::Session& session, Column column);
// By name, the highest version of each name first.
void cmdDoVersionSort_Click(session::Session& session);

} // namespace tarvix::results
