#pragma once

#include <string>
#include <string_view>

namespace tarvix::platform {

// Whether a name is its own short name: at most 8 characters, then at most one "." and 3 more, all
// from the characters that short names may hold, and no "~".
bool IsShortName(std::string_view name);

// The stable 8.3 form of a name: itself (its case kept) if it is one already, else six capital
// letters or digits worked out from the whole name, "~", one more, and up to three characters of
// its extension. Two names of one folder can, very rarely, share a form; looking such a form up
// must then fail.
std::string ShortNameOf(std::string_view name);

// Whether a text has the look of a form that `ShortNameOf` makes up, in either case.
bool LooksLikeMadeShortName(std::string_view name);

} // namespace tarvix::platform
