#pragma once

#include <cstddef>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::launch {

// A double click on a row of the list, from 0: opens its object, or marks it in a playlist that is
// edited. Nothing while a search runs.
void lstMain_DblClick(session::Session& session, std::size_t row);

// What opens and runs the selected objects: each refuses a count that it doesn't take, and tells
// what could not be started.
void mnuRun_Mp3_Click(session::Session& session);
void mnuRun_EnqueueMp3_Click(session::Session& session);
void mnuRun_ForceEnqueueMp3_Click(session::Session& session);
void mnuRun_View_Click(session::Session& session);
void mnuRun_HexEdit_Click(session::Session& session);
void mnuRun_Run_Click(session::Session& session);
void mnuRun_OpenParent_Click(session::Session& session);

// The events of opening, running and of the facts of the system.
void AddLaunchEvents(session::EventTable& events);

} // namespace tarvix::launch
