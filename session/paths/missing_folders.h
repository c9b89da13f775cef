#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {

struct Session;

// What `CreateMissingFolder` found and did.
struct MissingFolderResult {
    std::string path;              // the folder that stands now
    bool blnFolderCreated = false; // at least one folder was made
    std::vector<std::string> made; // all of them, the topmost first
    bool blnFolderAlreadyThere = false;
    bool isQuiet = false; // as it was asked for
    int errorNumber = 0;  // why the chain could not be made; 0 when it stands
    std::string errorText;
};

// Makes the folder that is to hold `path` (or `path` itself with `isFolderPath`), with all that is
// missing above it, at most 100 levels. Each folder made is logged " Created " and its path; what
// fails goes to the error handling, unless `isQuiet`, and stands in the result. Levels made before
// that stay until `RemoveMadeFolders`.
MissingFolderResult CreateMissingFolder(Session& session, std::string_view path, bool isFolderPath,
                                        bool isQuiet = false);
// The same, for what shortens a path.
MissingFolderResult CreateMissing247Folder(Session& session, std::string_view path,
                                           bool isFolderPath);

// Takes folders (drive paths, the topmost first) away again that were made for nothing: the last
// one first, up to one that isn't empty or can't go, which stays with all above it. Each that goes
// is logged.
void RemoveMadeFolders(Session& session, const std::vector<std::string>& made);

} // namespace tarvix::session
