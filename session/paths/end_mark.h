#pragma once

#include "platform/error.h"

#include <string_view>

namespace tarvix::platform {
class FileSystem;
}

namespace tarvix::session {

// Appends the mark that ends a list to the list of that drive path as a line of its own. 70 when
// the file can't be written, 61 when the disk is full: then the list may end in part of a mark.
platform::Result<void> AddEndMark(platform::FileSystem& files, std::string_view path);

} // namespace tarvix::session
