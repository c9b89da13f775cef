#pragma once

#include "batch/move_batch.h"
#include "batch/step_lines.h"

#include <optional>
#include <string>

namespace tarvix::batch {

// The steps of a generation of playlists: each line of the search list, with each line of the list
// of folders where there is one.
class PlaylistSteps {
  public:
    PlaylistSteps(platform::FileSystem& files, const PlaylistBatch& batch);
    // To the first step; 53 when a list has gone.
    platform::Result<void> Restart();
    // Nothing behind the last step; 62 where a list ends without a mark.
    platform::Result<std::optional<StepLine>> Next();
    // How many steps there are; 0 for lists that can't be read, which `Next` will tell.
    std::int64_t Count() const;
    // Whether another line stands behind the mark of the search list, else 62.
    platform::Result<void> ReadPastMark();

  private:
    platform::Result<bool> NextSearch();

    platform::FileSystem& files_;
    const PlaylistBatch& batch_;
    ListReader searches_;
    ListReader folders_;
    std::string search_;
    bool isInFolders_ = false; // of this search
};

} // namespace tarvix::batch
