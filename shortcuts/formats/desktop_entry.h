#pragma once

#include "shortcuts/formats/values.h"

namespace tarvix::shortcuts {

// The values of a .desktop file. Of an application: its program and the arguments behind it (as
// Exec has them), Path, Comment, Icon, and as window style "Terminal" or "Normal". Of a link: its
// URL as target, Comment and Icon. Keys without a language count.
Values ReadDesktopEntry(std::string_view bytes);
// Changes them; all other lines stay as they are. A desktop entry has no hot key.
Edited EditDesktopEntry(std::string_view bytes, const Edits& edits);

} // namespace tarvix::shortcuts
