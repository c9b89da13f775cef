#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// Sends the whole selection to the recycle bin: warns, confirms, leaves protected objects and the
// bins themselves alone, queues the rest and recycles the queue at once. A cancel before that
// leaves everything in place. While empty folders are deleted again and again nothing is confirmed.
void cmdDeleteSelected_Click(session::Session& session);

void AddDeleteEvents(session::EventTable& events);

} // namespace tarvix::actions
