#pragma once

#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::lifecycle {

// The load of the main window in its fixed order; `argument` is that of the process. Ends early,
// with `blnEnded`, when a damaged history is to be mended first.
void frmSearch_Load(session::Session& session, std::string_view argument);
// The unload: stops what runs, saves what is remembered and closes the logs.
void frmSearch_Unload(session::Session& session);

// Each time a secondary window gives the focus back: repeats the search or clears the list after an
// action that asked for it.
void frmSearch_Activate(session::Session& session);
// Keeps the window at 12000 by 7450 twips or more; a screen too small for that ends the program.
void frmSearch_Resize(session::Session& session);

// Reads the argument of the process into the two boxes. One that names nothing changes nothing.
void CommandLineOptions(session::Session& session, std::string_view argument);

// Activate, resize and unload of the main window.
void AddLifecycleEvents(session::EventTable& events);

// The list's tip without Expert Mode.
inline constexpr std::string_view kListTip =
    "To adjust columns, click & drag just inside the right edge of the column head.";

constexpr int kLeastWidth = 12000; // twips
constexpr int kLeastHeight = 7450;

} // namespace tarvix::lifecycle
