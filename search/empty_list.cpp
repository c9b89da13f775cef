#include "search/empty_list.h"

#include "session/session_state.h"

namespace tarvix::search {

std::string_view EmptyListText(const session::SessionState& state) {
    if (state.blnSearching) return "Searching...";
    const bool looked =
        state.lngSeenFiles > 0 || state.lngFilesFound > 0 || state.lngSeenFolders > 0;
    return looked ? "No object matches." : "Say what to search for and where, then press Search.";
}

} // namespace tarvix::search
