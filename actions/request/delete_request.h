#pragma once

namespace tarvix::session {
class EventTable;
struct EventArgs;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// Sends the whole selection to the recycle bin: warns, confirms, leaves protected objects and the
// bins themselves alone, queues the rest and recycles the queue at once. A cancel before that
// leaves everything in place. While empty folders are deleted again and again nothing is confirmed.
void cmdDeleteSelected_Click(session::Session& session);

// One selected object, by its index in the selection, for a caller that had it confirmed; counted
// in `lastAction`. A Cancel sets `blnStopAction`.
void RecycleSelected(session::Session& session, const session::EventArgs& args);

// The delete button, one selected object, and the question about what can't be recycled.
void AddDeleteEvents(session::EventTable& events);

} // namespace tarvix::actions
