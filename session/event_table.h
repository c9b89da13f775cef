#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvix::session {

struct Session;

// What an event routine is told besides the session.
struct EventArgs {
    int index = -1;        // the entry of a control array, or a row from 0
    bool isRepeat = false; // a click on the choice that was made already
    std::string_view path; // of a file that the event is about
};

using EventRoutine = std::function<void(Session&, const EventArgs&)>;

// Sends the data file `path` to the recycle bin; what refuses is asked about as in an action.
constexpr std::string_view kRecycleFile = "frmSearch.RecycleFile";

// From "frmSearch.cmdSearch_Click" to its routine. Filled when the program is composed; buttons,
// menus, scripts and batches all raise events through it.
class EventTable {
  public:
    // Gives the event its routine, in place of the one that it had.
    void On(std::string event, EventRoutine routine);
    void On(std::string event, void (*routine)(Session&));
    // Whether a routine stands behind the event; a button without one is not offered.
    bool Has(std::string_view event) const;
    // Runs the routine of the event; false when there is none.
    bool Raise(Session& session, std::string_view event, const EventArgs& args = {}) const;

  private:
    std::unordered_map<std::string, EventRoutine> routines_;
};

} // namespace tarvix::session
