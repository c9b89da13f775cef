#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::search {

// The one driver of every search: reads the request, refuses a bad one with its messages, walks it,
// and runs what comes next, which may be the same search once more. Does nothing while one runs.
void cmdSearch_Click(session::Session& session);

// Ends the running walk at its next object; while objects are recycled, the recycling.
void cmdStop_Click(session::Session& session);
// Ends the running walk at its next object, for a batch that goes on with its next search.
void cmdNext_Click(session::Session& session);

// All events of this folder.
void AddSearchEvents(session::EventTable& events);

} // namespace tarvix::search
