#pragma once

#include "shortcuts/formats/values.h"

namespace tarvix::shortcuts {

// The values of a .url file: target (the first URL of its own section, the Unicode twin before it),
// hot key as the number that stands there, icon as "file,index"; all others are empty.
Values ReadInternetShortcut(std::string_view bytes);
// Changes those three; an empty icon keeps the old lines.
Edited EditInternetShortcut(std::string_view bytes, const Edits& edits);

} // namespace tarvix::shortcuts
