#pragma once

#include "platform/error.h"

#include <string_view>

namespace tarvix::platform {
class FileSystem;
}

namespace tarvix::session {

// Gives the text file of that drive path this content, and makes it if it is missing. The content
// is written beside it first and then put in its place, so that after any failure the old file
// stands unharmed. A read-only file is replaced too. 61 disk full, 70 refused, 76 no such folder.
platform::Result<void> ReplaceTextFile(platform::FileSystem& files, std::string_view path,
                                       std::string_view content);

} // namespace tarvix::session
