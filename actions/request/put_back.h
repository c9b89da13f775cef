#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// Puts back what the last action sent to the trash: the objects chosen on the page of its outcome,
// or all of them where none is chosen, the last that went first, so that a folder is there before
// what was in it. Nothing is ever replaced. The page then shows what became of them; what is still
// in the trash can be put back from there again.
void cmdPutBack_Click(session::Session& session);

// Whether that can be done and with how many, told by the button of the page.
void ShowPutBack(session::Session& session);

void AddPutBackEvents(session::EventTable& events);

} // namespace tarvix::actions
