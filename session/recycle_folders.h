#pragma once

#include <string_view>

namespace tarvix::session {

// The folders that hold what was recycled: those of other systems' drives, and the desktop's
// trash. Pure tests of a drive path, without regard to case.

// Such a folder itself.
bool IsRecycleBin(std::string_view path);
// Such a folder, or anything in it.
bool IsInRecycleBin(std::string_view path);

} // namespace tarvix::session
