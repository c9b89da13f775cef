#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::results {
class ResultList;
}

namespace tarvix::generate {

// The name with the Year-Rank of its group's head at its end: "Song.mp3" below "1987-042 Best.mp3"
// becomes "Song 1987-042.mp3". Empty where it stays: it has a Year-Rank, the head has none, or it
// has no extension of one to four characters.
std::string RankedName(std::string_view name, std::string_view headName);

struct PlaylistRename {
    std::size_t row = 0;
    std::string newName; // empty for one that stays as it is
};

// What the marks of an edited playlist ask for, in the order of its rows.
struct PlaylistPlan {
    std::vector<PlaylistRename> renames; // of the green rows
    std::vector<std::size_t> deletions;  // rows that are selected and not green

    bool IsEmpty() const { return renames.empty() && deletions.empty(); }
};

// Reads the marks as they stand; the rows keep them.
PlaylistPlan ReadPlan(const results::ResultList& rows);

} // namespace tarvix::generate
