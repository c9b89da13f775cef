#pragma once

#include "platform/error.h"

#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Writes the present names of the selection into a new list in the data folder, whole ones if the
// window asks for them, and gives its path (drive form). The errors of CreateTextFile and writing;
// then nothing is left of it.
platform::Result<std::string> WritePresentNames(session::Session& session);

// What such a list holds by now; empty when it can't be read.
std::string ContentOf(session::Session& session, const std::string& path);

// WritePresentNames, then makes it the list of the action window and shows it in the editor.
void cmdEditNames_Click(session::Session& session);

} // namespace tarvix::actions
