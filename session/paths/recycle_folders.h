#pragma once

#include <string_view>

namespace tarvix::session {

// The folders that hold what was recycled: those of other systems' drives, and the desktop's
// trash. Pure tests of a drive path, without regard to case.

// Such a folder itself, in the root of its drive or share; no deletion takes it.
bool IsRecycleBin(std::string_view path);
// What a crawl leaves out: the same, and on a share anything whose path ends as such a name.
bool IsRecycleBinPath(std::string_view path);
// Such a folder or anything in it, and whatever begins with its path: a request that names it means
// the bin.
bool IsInRecycleBin(std::string_view path);

} // namespace tarvix::session
