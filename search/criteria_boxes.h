#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::search {

// The routines of the criteria's own events: what each box shows and hides, the date window, the
// menu of date kinds, and the steps of the three-state boxes.
void AddCriteriaEvents(session::EventTable& events);

// Colour and tip of the three-state boxes after their value.
void PaintAttributeBoxes(session::Session& session);

} // namespace tarvix::search
