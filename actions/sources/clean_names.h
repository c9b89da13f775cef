#pragma once

#include <string>
#include <string_view>

namespace tarvix::actions {

// The title of a page without what no name may hold: \ / : * ? < > " and |.
std::string CleanTitle(std::string_view text);

// The text of a link as a name: control characters go, | becomes ~, < and > become brackets, a
// double quote a single one, ? becomes !, and * : / \ and tab become -. Of each kind at most 100
// are replaced.
std::string CleanWebName(std::string_view text);

// A text of a page, UTF-8, as one line for a name: control characters and the blanks that don't
// break a line become plain blanks, those at the ends go.
std::string OnOneNameLine(std::string_view text);

} // namespace tarvix::actions
