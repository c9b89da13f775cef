#pragma once

#include "text/dates.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {

struct Session;

// The action log of one run.
struct RunLog {
    std::string path; // drive path
    text::DateTime started;
};

// When the run of an action log of that file name began; none for any other name.
std::optional<text::DateTime> StartOfRun(std::string_view fileName);

// The action logs in the data folder, the newest first.
std::vector<RunLog> ListRunLogs(Session& session);

// Deletes the oldest action logs beyond what `LogsKept` keeps. That of this run, one that another
// program still writes and one that is write-protected stay.
void RemoveOldLogs(Session& session);

} // namespace tarvix::session
