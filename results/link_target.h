#pragma once

#include "platform/error.h"

#include <cstddef>
#include <optional>
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

constexpr std::size_t kMostShortcutBytes = 1 << 20;

// The bytes of a shortcut (drive path), so many of them at most. 53, 70.
platform::Result<std::string> ReadShortcut(session::Session& session, std::string_view path);

// Where the target of the shortcut at `path` lies here (drive path). Letters are this machine's,
// but below a folder with `dosdevices` in it those of that folder. None for what is no path with a
// letter or of a share; a leading variable is expanded by this machine.
std::optional<std::string> PlaceOfTarget(session::Session& session, std::string_view path,
                                         std::string_view target);
// The folder with the letters of the place that a shortcut lies in; empty where they are those of
// this machine.
std::string LettersAbove(session::Session& session, std::string_view path);
// NormalizeTargetPath by such letters.
std::string NormalizeLinkTarget(session::Session& session, const std::string& letters,
                                std::string_view target);

// A stored target in the spelling that the disk has: quotes and a final "\" taken off, a leading
// variable expanded. The path as given when it, or a folder on the way, isn't there.
std::string NormalizeTargetPath(session::Session& session, std::string_view path);

} // namespace tarvix::results
