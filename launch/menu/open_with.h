#pragma once

#include "launch/menu/menu_objects.h"

#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::menu {

// Opens the objects, each with the application that the desktop has for its type; those of one
// application are handed over together. What has none, and what could not be started, is told once.
void OpenObjects(session::Session& session, const MenuObjects& objects);

// Opens them with an application.
void OpenWith(session::Session& session, const MenuObjects& objects, std::string_view application);

// Lets the user choose one of all applications, and opens them with it.
void ChooseWith(session::Session& session, const MenuObjects& objects);

void AddOpenWithEvents(session::EventTable& events);

} // namespace tarvix::menu
