#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// What a .lnk or .url file (drive path) leads to: a drive path in the spelling of the disk, or an
// address. Empty for any other file, for a shortcut without a target and for one that can't be
// read.
std::string LinkTargetOf(session::Session& session, std::string_view path);

// A stored target in the spelling that the disk has: quotes and a final "\" taken off, a leading
// variable expanded. The path as given when it, or a folder on the way, isn't there.
std::string NormalizeTargetPath(session::Session& session, std::string_view path);

} // namespace tarvix::results
