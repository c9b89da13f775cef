#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Pieces of drive paths: "C:\a\b" and "\\server\share\a\b", "\" between names. Nothing here looks
// at a disk. Views returned point into the argument.
namespace tarvix::text {

// The last name, one trailing "\" ignored; empty for a drive or a share alone.
std::string_view FileNameOf(std::string_view path);
// The text behind the last "\", or all of it; empty behind a trailing "\".
std::string_view FolderOwnName(std::string_view path);
// The folder above, a trailing "\" ignored: "C:\" of "C:\a", "\\server\share" of
// "\\server\share\x"; empty for a drive, a share, or a name alone.
std::string_view GetParentFolderName(std::string_view path);

// GetParentFolderName; the path itself when it holds no "\" or has no parent.
std::string ParentFolder(std::string_view path);
// GetParentFolderName with one "\" behind it ("C:\" of "C:\a"); the path itself when it holds
// no "\".
std::string ParentFolderSlash(std::string_view path);

// The text behind the last ".", empty without one.
std::string_view GetExtension(std::string_view name);
// The last name of the path, less its last "." and what follows.
std::string_view GetBaseName(std::string_view path);

// How many "\" the path holds.
std::size_t CountPathLevels(std::string_view path);

// One such character taken off, if it is there.
std::string_view StripTrailingSlash(std::string_view path);
std::string_view StripLeadingBar(std::string_view s);
std::string_view StripTrailingBar(std::string_view s);

// Without blanks at the ends and next to "\" and "|". With `strict` also without doubled "\" from
// the third character on and without one trailing "\".
std::string CleanSpacesInPath(std::string_view path, bool strict);
// Whether there is nothing to clean. May say no of a path that stays as it is.
bool IsCleanPath(std::string_view path, bool strict);

// "C:" or "\\server\share": the first two characters of a path with ":", otherwise the text before
// the fourth "\". Empty is the failure: a UNC path with fewer than four "\".
std::string PathRoot(std::string_view path);
// What follows the root, with its "\" in front; empty without ":" and without "\\" in front or
// a fourth "\".
std::string PathBelowRoot(std::string_view path);
// The root as folders: "\C" of "C:", "\server\share" of "\\server\share". Empty for an empty root.
std::string RootAsFolders(std::string_view root);

// Folder and name with exactly one "\" between; an empty folder gives the name.
std::string JoinPath(std::string_view folder, std::string_view name);
// The same, in place of the folder; `name` must not lie in it.
void AppendToPath(std::string& folder, std::string_view name);

} // namespace tarvix::text
