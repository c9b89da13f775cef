#pragma once

#include "launch/menu/menu_model.h"

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::menu {

// Does what an entry of the menu stands for with the objects. What can't be done is told; deleting
// and renaming go the way of the window's own buttons.
void Do(session::Session& session, const MenuObjects& objects, const ContextMenu& menu,
        const MenuChoice& choice);

void AddDeedEvents(session::EventTable& events);

} // namespace tarvix::menu
