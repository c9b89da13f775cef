#pragma once

#include "shortcuts/formats/values.h"

namespace tarvix::shortcuts {

// The values of a .lnk file. The target is that of the ID list, else of the link info, else the one
// with variables; empty where none of them is a path.
Values ReadShellLink(std::string_view bytes);
// Changes them. A new target is a path with a drive, of a share, or with a variable in front.
Edited EditShellLink(std::string_view bytes, const Edits& edits);

} // namespace tarvix::shortcuts
