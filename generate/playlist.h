#pragma once

#include "generate/list_source.h"

#include <memory>
#include <string>
#include <string_view>

namespace tarvix::generate {

// A playlist of the selected objects: header, entries, and comments of missing ranks where they are
// asked for. In native form an entry that players would not read as it stands is a file address.
std::unique_ptr<ListSource> MakePlaylist(session::Session& session, const ListRequest& request);

// How a path, native and relative or absolute, stands in a playlist; `absolute` is the whole path.
std::string PlaylistEntry(std::string_view path, std::string_view absolute);

// The native path as seen from a native folder, "../" included.
std::string RelativePath(std::string_view path, std::string_view folder);

} // namespace tarvix::generate
