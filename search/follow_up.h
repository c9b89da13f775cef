#pragma once

#include "search/walk_end.h"

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

struct SearchRequest;

// What comes behind a search that ended.
enum class Next { kRest, kEnd, kSearchAgain };

// Asks twice whether a repeat search for empty folders may delete what it finds; two Yes set
// `blnRepeatDeleteEmpty`. Any other search clears it.
void AskRepeatDelete(session::Session& session);

// Runs what a repeat or a batch wants next: selects rows and raises the action. kSearchAgain while
// empty folders are still being deleted, kEnd when that came to its end, kRest otherwise. Only what
// a search for empty folders listed is deleted; a stop or a refusal (no request) deletes nothing
// and ends the deletion.
Next RunFollowUp(session::Session& session, const SearchRequest* request, const WalkEnd& end);

} // namespace tarvix::search
