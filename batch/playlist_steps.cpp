#include "batch/playlist_steps.h"

#include "platform/try.h"

namespace tarvix::batch {

using platform::Result;

PlaylistSteps::PlaylistSteps(platform::FileSystem& files, const PlaylistBatch& batch)
    : files_(files), batch_(batch), searches_(files, batch.searchList),
      folders_(files, batch.folderList) {}

Result<void> PlaylistSteps::Restart() {
    isInFolders_ = false;
    return searches_.Restart();
}

// Whether there is another.
Result<bool> PlaylistSteps::NextSearch() {
    TX_TRY_ASSIGN(search_, searches_.Next());
    return search_ != kEndMark;
}

Result<std::optional<StepLine>> PlaylistSteps::Next() {
    while (true) {
        if (!isInFolders_) {
            TX_TRY_ASSIGN(const bool isThere, NextSearch());
            if (!isThere) return std::optional<StepLine>();
            if (batch_.IsFull()) return StepLine{search_, batch_.folder};
            TX_TRY(folders_.Restart());
            isInFolders_ = true;
        }
        TX_TRY_ASSIGN(std::string folder, folders_.Next());
        if (folder != kEndMark) return StepLine{search_, std::move(folder)};
        isInFolders_ = false;
    }
}

std::int64_t PlaylistSteps::Count() const {
    const auto searches = MeasureList(files_, batch_.searchList, ListMarks::kEnd);
    if (!searches) return 0;
    if (batch_.IsFull()) return searches->entries;
    const auto folders = MeasureList(files_, batch_.folderList, ListMarks::kEnd);
    return folders ? searches->entries * folders->entries : 0;
}

Result<void> PlaylistSteps::ReadPastMark() {
    TX_TRY(searches_.Next());
    return {};
}

} // namespace tarvix::batch
