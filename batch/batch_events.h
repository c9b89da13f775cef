#pragma once

namespace tarvix::session {
class EventTable;
}

namespace tarvix::batch {

// The menu entries of batches, shows of pages and scripts, and what follows them.
void AddBatchEvents(session::EventTable& events);

} // namespace tarvix::batch
