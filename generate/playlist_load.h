#pragma once

#include <cstdint>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

// What a playlist held that is no row.
struct PlaylistLoad {
    std::int64_t elsewhere = 0; // addresses on the net
    bool isCut = false;         // the list takes no more rows
};

// Fills the list, which must be empty, with the entries of a playlist (a drive path, as its folder)
// and their possible duplicates. A missing playlist is told; one that can't be read goes the way of
// errors. What the list got by then stays. Yields.
PlaylistLoad OpenPlayListFile(session::Session& session, const std::string& playlistPath,
                              const std::string& playlistFolder);

} // namespace tarvix::generate
