#include "session/event_table.h"

#include <utility>

namespace tarvix::session {

void EventTable::On(std::string event, EventRoutine routine) {
    routines_[std::move(event)] = std::move(routine);
}

void EventTable::On(std::string event, void (*routine)(Session&)) {
    On(std::move(event), [routine](Session& session, const EventArgs&) { routine(session); });
}

bool EventTable::Has(std::string_view event) const {
    return routines_.contains(std::string(event));
}

bool EventTable::Raise(Session& session, std::string_view event, const EventArgs& args) const {
    const auto found = routines_.find(std::string(event));
    if (found == routines_.end()) return false;
    found->second(session, args);
    return true;
}

} // namespace tarvix::session
