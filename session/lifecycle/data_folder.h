#pragma once

#include "platform/platform.h"

#include <string>
#include <utility>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::lifecycle {

struct DataPlace {
    std::string folder; // drive path, no final "\"
    bool isVirtualStore = false;
};
// Where options, histories and logs lie. Nothing is made or looked up.
DataPlace PlaceOfData(const platform::Environment& environment);

// The letters that were given to native folders, out of the data folder of a machine that may not
// know them yet; none where nothing was saved.
std::vector<std::pair<char, std::string>> SavedDrives(const platform::Platform& machine);

// Finds the data folder and makes it if it is missing. The levels that were made are logged once
// the log is open.
void FindDataFolder(session::Session& session);
// The drive paths of its files, from `strDataFolder`; the action log is named by the time.
void FormDataPaths(session::Session& session);

} // namespace tarvix::lifecycle
