#pragma once

#include "platform/error.h"

#include <string_view>

namespace tarvix::session {

struct Session;

// Whether the data folder takes files: one is written there, and removed again.
platform::Result<void> TryDataFolder(Session& session);

// Tells once, and records, that the data folder can't be written, so that nothing of this run is
// logged or saved; `first` begins the text. Sets `blnDataUnwritable`.
void TellDataUnwritable(Session& session, const platform::PlatformError& error,
                        std::string_view first = {});

// Records that a file was not read whole, and so is not saved.
void NoteLeftAlone(Session& session, std::string_view routine, std::string_view path);

} // namespace tarvix::session
