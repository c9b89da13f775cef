#pragma once

#include "search/search_request.h"
#include "search/walk_end.h"

#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// What the search form shows from the click of `cmdSearch` to the end of the search, step by step.

// Empties the list and the labels, forgets an earlier stop, and locks the criteria.
void ClearForSearch(session::Session& session);
// Shows what a running search shows; in a batch also its file and the way to its next search.
void ShowSearching(session::Session& session, const SearchRequest& request);
// Shows how the search ended, and unlocks the criteria.
void ShowEnd(session::Session& session, const WalkEnd& end);
// After a walk, whatever its end: the counts, and all that can be done with rows.
void CommonEnd(session::Session& session, const SearchRequest& request);

// Hides `cmdNext`, and shows `chkNot` unless the text holds "[", "#" or "|".
void RestoreNotBox(session::Session& session);

} // namespace tarvix::search
