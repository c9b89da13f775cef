#pragma once

#include "search/search_request.h"
#include "search/walk_end.h"

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// Walks the matrix of locations by search strings and adds a row for each object that passes: a
// location is finished with all strings before the next one begins. Ends at the next object after a
// stop or a skip; the rows found until then stay.
WalkEnd Walk(session::Session& session, const SearchRequest& request);

} // namespace tarvix::search
