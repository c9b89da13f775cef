#pragma once

#include "search/walk_end.h"

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// What comes behind a search that ended.
enum class Next { kRest, kEnd, kSearchAgain };

// Asks twice whether a repeat search for empty folders may delete what it finds; two Yes set
// `blnRepeatDeleteEmpty`.
void AskRepeatDelete(session::Session& session);

// Runs what a repeat or a batch wants next: selects rows and raises the action. kSearchAgain while
// empty folders are still being deleted, kEnd when that came to its end, kRest otherwise. A stop
// deletes nothing.
Next RunFollowUp(session::Session& session, const WalkEnd& end);

} // namespace tarvix::search
