#include "session/long_path.h"

#include "session/session.h"
#include "text/characters.h"

#include <string>

namespace tarvix::session {

void RefuseLongSearch(Session& session, std::string_view searchText, std::string_view routine) {
    const std::string told = "\r\n\r\nRoutine - " + std::string(routine) +
                             " is attempting to search with this: \r\n\r\n" +
                             std::string(searchText) + "\r\n\r\nIt contains " +
                             std::to_string(text::Length(searchText)) +
                             " characters. That search string is to long to used.";
    session.MsgBox(told);
    LogTimed(session, " " + told);
    session.state.blnStopClicked = true;
}

} // namespace tarvix::session
