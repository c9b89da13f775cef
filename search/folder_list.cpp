#include "search/folder_list.h"

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/try.h"
#include "search/name_checks.h"
#include "search/unread.h"
#include "search/walk_end.h"
#include "session/paths/recycle_folders.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <optional>
#include <utility>

namespace tarvix::search {

namespace {
constexpr std::int64_t kListingLasts = 500'000'000; // nanoseconds
}

void FolderList::Erase() {
    folders_.clear();
    folders_.shrink_to_fit();
    names_.Clear();
    isBuilt_ = false;
}

bool FolderList::IsInterrupted() const {
    return !TestFlags(session_.state);
}

// Every level shortened at once, from the names alone: a search looks up nothing that it doesn't
// list.
std::string FolderList::ShortFormFor(const std::string& path) {
    if (!session::ExceedsLimit(session_, path, session::kFolderPortion)) return {};
    return session::ShortFormOf(path);
}

void FolderList::ShowReading(std::string_view folder) {
    session_.frmSearch.lblCurrentFolder.Caption =
        text::Concat({"Building list of folders with - ", session_.Shown(folder)});
}

void FolderList::Start(std::string_view location) {
    Erase();
    ShowReading(location);
    CrawlFolder root;
    root.strFolderLong = location;
    root.strFolderShort = ShortFormFor(root.strFolderLong);
    folders_.push_back(std::move(root));
    isBuilt_ = true;
    ahead_ = std::make_unique<platform::ReadAhead>(session_.files());
    takesRootOver_ = HasListingOf(location);
    if (!takesRootOver_) Order(folders_.front());
}

// A walk over the location alone may have listed it just now.
bool FolderList::HasListingOf(std::string_view folder) const {
    return !listed_.empty() && listed_ == folder &&
           session_.platform.clock.Steady() - listedAt_ < kListingLasts;
}

void FolderList::Order(const CrawlFolder& folder) {
    if (ahead_ && folder.isWalkable) ahead_->OrderListing(folder.strFolderLong);
}

void FolderList::BuildSubFoldersArray(std::string_view location) {
    readsChildren_ = true;
    Start(location);
    for (std::size_t index = 0; index < folders_.size() && !IsInterrupted(); ++index) {
        ShowReading(folders_[index].strFolderLong);
        const bool addFolders = request_.subfolders || index == 0;
        ReadFolder(index, addFolders, addFolders);
    }
    ahead_.reset();
    counters_.ShowSeen();
}

void FolderList::BuildSubFoldersArrayLevelOne(std::string_view location) {
    readsChildren_ = false;
    Start(location);
    ReadFolder(0, true, true);
    ahead_.reset();
    counters_.ShowSeen();
}

void FolderList::BuildRootOnly(std::string_view location) {
    Erase();
    CrawlFolder root;
    root.strFolderLong = location;
    root.strFolderShort = ShortFormFor(root.strFolderLong);
    folders_.push_back(std::move(root));
}

void FolderList::BuildSecond() {
    for (const CrawlFolder& folder : folders_) {
        session_.frmSearch.lblCurrentFolder.Caption = text::Concat(
            {"Building another list of folders with - ", session_.Shown(folder.strFolderLong)});
        session_.Yield();
        if (IsInterrupted()) return;
    }
}

void FolderList::EnsureListed(std::size_t index) {
    CrawlFolder& folder = folders_[index];
    if (folder.isListed) return;
    folder.isListed = true;
    folder.namesBegin = folder.namesEnd = static_cast<std::uint32_t>(names_.Size());
    if (!folder.isWalkable) return;
    if (!ListNow(index, index == 0 ? "FindFilesAtRoot" : "FindFilesInSubFolders", true)) return;
    for (std::size_t i = 0; i < scratch_.Size(); ++i) {
        if (!scratch_[i].isFolder) names_.Add(scratch_[i]);
    }
    folder.namesEnd = static_cast<std::uint32_t>(names_.Size());
}

bool FolderList::HasNothing(std::size_t index) {
    return ListNow(index, "FindEmptyFoldersInSubFolders", true) && scratch_.Size() == 0;
}

// Into `scratch_`. A folder that can't be read has no objects, and is told if the search wants
// them.
bool FolderList::ListNow(std::size_t index, std::string_view routine, bool counts) {
    const CrawlFolder& folder = folders_[index];
    const session::ErrorContext context{.routine = routine,
                                        .moduleName = "frmSearch",
                                        .object = session::kUnreadObject,
                                        .path = folder.Short(),
                                        .searchOrDestination = folders_.front().strFolderLong};
    listed_.clear();
    listedAt_ = session_.platform.clock.Steady();
    const UnreadCandidate object{
        .path = folder.strFolderLong, .isFolder = true, .mustExist = index == 0, .counts = counts};
    const auto done = ReadOrNote(session_, object, context, [&]() -> platform::Result<void> {
        TX_TRY_ASSIGN(const auto opened, session_.files().Open(folder.strFolderLong));
        return opened->List(scratch_);
    });
    if (!done) return false;
    listed_ = folder.strFolderLong;
    return true;
}

void FolderList::ReadFolder(std::size_t index, bool addFolders, bool countContent) {
    folders_[index].isListed = true;
    folders_[index].namesBegin = folders_[index].namesEnd =
        static_cast<std::uint32_t>(names_.Size());
    if (!folders_[index].isWalkable) return;
    const bool isAtHand = index == 0 && takesRootOver_;
    if (!isAtHand) listed_.clear();
    if (!isAtHand && !ahead_->TakeListing(scratch_) &&
        !ListNow(index, readsChildren_ ? "BuildSubFoldersArray" : "BuildSubFoldersArrayLevelOne",
                 addFolders)) {
        return;
    }
    for (std::size_t i = 0; i < scratch_.Size(); ++i) {
        if (!TakeEntry(index, scratch_[i], addFolders, countContent)) return;
    }
}

// One name of a folder. False when the user stops or skips.
bool FolderList::TakeEntry(std::size_t index, const platform::FolderEntry& entry, bool addFolders,
                           bool countContent) {
    const std::string& folder = folders_[index].strFolderLong;
    if (entry.name.ends_with(' ')) ReportTrailingSpaces(session_, entry.name, folder);
    if (entry.isFolder) {
        const std::string path = text::Concat({folder, "\\", entry.name});
        if (IsNestedRecoveryFolder(path)) {
            session::LogTimed(
                session_,
                fmt::format(" Skipped {} as nested Recovery-Mode folders are not allowed (Ubuntu).",
                            session_.Shown(path)));
            return true;
        }
    }
    const bool isValid = IsNameValid(session_, entry.name, folder, false);
    session_.Yield();
    if (IsInterrupted()) return false;
    if (!isValid) return true;
    if (entry.isFolder) {
        ++folders_[index].intFoldersInFolder;
        if (addFolders) AddToFolderArray(index, entry);
        session_.Yield();
    } else {
        ++folders_[index].intFilesInFolder;
        names_.Add(entry);
        folders_[index].namesEnd = static_cast<std::uint32_t>(names_.Size());
        if (countContent) counters_.CountFileSeen();
    }
    return !IsInterrupted();
}

void FolderList::AddToFolderArray(std::size_t parent, const platform::FolderEntry& entry) {
    if (entry.name.ends_with(' ')) return;
    CrawlFolder folder;
    const std::string& above = folders_[parent].strFolderLong;
    folder.strFolderLong.reserve(above.size() + 1 + entry.name.size());
    folder.strFolderLong.append(above).append("\\").append(entry.name);
    if (IsFakeFolder(folder.strFolderLong)) {
        ReportFakeFolder(session_, folder.strFolderLong);
        return;
    }
    if (!request_.IsRecycleAllowed() && session::IsRecycleBinPath(folder.strFolderLong)) return;
    folder.strFolderShort = ShortFormFor(folder.strFolderLong);
    folder.isWalkable = entry.IsWalkable();
    if (readsChildren_) Order(folder);
    folders_.push_back(std::move(folder));
    counters_.CountFolderSeen();
}

} // namespace tarvix::search
