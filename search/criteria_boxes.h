#pragma once

namespace tarvix::session {
struct EventArgs;
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::search {

// Each shows a message and sets `blnErrorPreparingForSearch` when its boxes are bad.
void ValidateSizeBoxes(session::Session& session);
void ValidateDateBoxes(session::Session& session);

// The routines of the criteria's own events.
void AddCriteriaEvents(session::EventTable& events);

// Colour and tip of the three-state boxes after their value.
void PaintAttributeBoxes(session::Session& session);

} // namespace tarvix::search
