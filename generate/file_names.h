#pragma once

#include <string>
#include <string_view>
#include <utility>

// What becomes of the names of written files. Drive paths; nothing here looks at a disk.
namespace tarvix::generate {

// The text without any "|".
std::string RemoveBars(std::string_view text);
// The text without any "*" and "?".
std::string RemoveWildcards(std::string_view text);
// Every "." but the last one taken out.
std::string KeepLastDotOnly(std::string_view name);
// The text before the last "." of the file's own name and the text behind it; without one the path
// and nothing.
std::pair<std::string, std::string> SplitAtLastDot(std::string_view path);

// Whether the name ends so, in that exact case.
bool IsPathListName(std::string_view path); // ".mpl"
bool IsPlaylistName(std::string_view path); // ".m3u" and ".m3u8"

} // namespace tarvix::generate
