#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {

class EventTable;
struct Session;

// Shows a text file (drive path) in the editor of the machine settings, or else in the one that the
// desktop has for it; does not wait. A failure goes to the error handling of the search window
// under the name of `routine`. Gives whether a program was started.
bool ViewAsText(Session& session, const std::string& path, std::string_view routine);

// The menu entries that show the action log of this run, and any log, options or list file.
void AddLogViewEvents(EventTable& events);

} // namespace tarvix::session
