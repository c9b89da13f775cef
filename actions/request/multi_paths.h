#pragma once

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

// Lists the Multiple Path Lists (*.mpl) of the data folder; those chosen stay chosen.
void RefreshMultiPathList(session::Session& session);

// Reads the chosen lists into `lstMulti`, each path cleaned and without a final
// "\", at most kMultiPathLimit of them (the status line tells of more). A list that can't be read
// is told and left out.
void LoadMultiPaths(session::Session& session);

// Asks whatever program shows a chosen list to close it. Where no program can be asked, as on most
// desktops, it stays open, which does no harm: lists are only read.
void CloseMultiPathInEditor(session::Session& session);

// A click on the chosen lists, and a double click on a path of theirs.
void AddMultiPathEvents(session::EventTable& events);

} // namespace tarvix::actions
