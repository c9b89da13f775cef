#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// The full new path of the object in hand (`lngIndex` of the selection, listed as `strPath`), when
// it gets the name `strName`: by what is chosen in the action window, for the destination
// `intMultiIndex`. Looks at the disk only for a Special Rule with a Search Set. Empty, with
// `blnNoDestination` set, when the object has no place to go to: its rule gave no folder (then
// `blnRuleFailed` is set), or a network path has no share (then `blnErrorOccurred` is set).
std::string ComputeDestination(session::Session& session, std::string_view strName,
                               std::string_view strPath);

// The number in `txtFolderTree`; 0 when it is empty. A number beyond any path counts as
// kMostLevels.
int FolderTreeLevels(const session::Session& session);
constexpr int kMostLevels = 1000;

// Sets `strFolderPrefix` to the names of the folders that the object in hand leaves on its way up.
void BuildFolderPrefix(session::Session& session);

// The pure pieces.

// The folders passed on the way up from an object, "b c" of "C:\a\b\c\f.txt" and 2 levels.
std::string FolderPrefixOf(std::string_view path, int levels);
// The folder that lies so many levels above the folder of an object; at the root it stays there.
std::string FolderAbove(std::string_view path, int levels);
// The last names of a folder's path as one name, "Rock Album" of "C:\Music\Rock\Album" and 2
// levels; the whole path when it has fewer levels.
std::string LastFoldersAsName(std::string_view path, int levels);
// A blank for each "\" and each ":", at most 100 of either.
std::string FoldersAsWords(std::string_view text);

} // namespace tarvix::actions
