#pragma once

#include <cstddef>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

class OutcomeList;
class ResultList;

// What the rows show of objects that were cut, or are gone since an action. The next search begins
// without marks.

// Marks the selected rows as cut and all others not.
void MarkCut(session::Session& session);
// No row is cut any more.
void ClearCut(session::Session& session);
// Marks those of the selected rows as gone, and unselects them, at whose paths nothing stands any
// more. `settled`: an action that just went over them, if any; what it took away isn't looked for.
// The counters are the caller's to count anew.
void MarkGone(session::Session& session, const OutcomeList* settled = nullptr);

// Rows whose objects the list has as put back are gone no more.
void MarkBack(ResultList& rows, const OutcomeList& list);

// The row of an object of the last action: of what was moved or renamed where it is by now, else
// where it was listed; Count() when there is none.
std::size_t RowOfOutcome(ResultList& rows, const OutcomeList& list, std::size_t at);
// Gives the rows what the last action did with their objects, and all others none.
void MarkFates(ResultList& rows, const OutcomeList& list);

} // namespace tarvix::results
