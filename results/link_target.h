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

// The target that the bytes of a .lnk file name, as they have it; a form with variables where they
// have no other. Empty when they are no shell link.
std::string TargetOfShellLink(std::string_view bytes);
// The same for the text of a .url file.
std::string TargetOfInternetShortcut(std::string_view text);

// A stored target in the spelling that the disk has: quotes and a final "\" taken off, a leading
// variable expanded. The path as given when it, or a folder on the way, isn't there.
std::string NormalizeTargetPath(session::Session& session, std::string_view path);

} // namespace tarvix::results
