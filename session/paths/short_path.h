#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {

struct Session;

constexpr std::size_t kLongPath = 259;       // characters of a path that everything can open
constexpr std::size_t kLongestNewPath = 254; // the same of one that an object is to get
constexpr std::size_t kFolderPortion = 247;  // of a folder, when a name is still to follow
constexpr std::size_t kAbsoluteLimit = 500;

// Whether a path is longer than so many characters, and so needs a short form to be opened. Never
// where `LongestPath` leaves it to the disk.
bool ExceedsLimit(const Session& session, std::string_view path, std::size_t limit);

struct ShortPathResult {
    std::string path;
    // 0 no short path; 1 still over 259 characters (only for a whole path); 2 over the limit but
    // below 260; 3 within the limit.
    int status = 0;
    std::vector<std::string> made = {}; // the folders that were missing, the topmost first
};

// A form of a drive path that can be opened everywhere, by short names level by level. Only limits
// from 1 to 247 are honoured, others count as 247. With `whole` the last name is shortened too.
// Folders on the way that are missing are made first. Where `LongestPath` leaves lengths to the
// disk the path is within every limit as it stands.
ShortPathResult GetShortPathNameReturnCodes(Session& session, std::string_view path,
                                            bool whole = false, std::size_t limit = kFolderPortion);

// Long and short form of one path walked in step: as few short levels in front as bring the whole
// to `limit` characters (0 or more than 259 count as 259). The short form when none does.
std::string MixPath(std::string_view longPath, std::string_view shortPath, std::size_t limit = 0);

// The short form of a path worked out from its names alone, without the disk.
std::string ShortFormOf(std::string_view path);

} // namespace tarvix::session
