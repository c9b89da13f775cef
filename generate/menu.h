#pragma once

namespace tarvix::session {
class EventTable;
} // namespace tarvix::session

namespace tarvix::generate {

// The menu entries that write files, the dialogs that name them, and the writing itself.
void AddGenerateEvents(session::EventTable& events);

} // namespace tarvix::generate
