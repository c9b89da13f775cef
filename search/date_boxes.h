#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::search {

// Sets the dates that the search tests from the words in their boxes, as they are meant now; a text
// that means none leaves no date. A blank box leaves its date as it is.
void TakeDateBoxes(session::Session& session);

// Shows the dates that were picked in the boxes, each without the time of day that it has anyway.
void ShowPickedDates(session::Session& session);

// What follows a text that was typed into a date box.
void AddDateBoxEvents(session::EventTable& events);

} // namespace tarvix::search
