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
    facts_.Clear();
    coming_.reset();
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
        text::Concat({"Building list of folders with - ", shown_.Of(folder)});
}

void FolderList::Start(std::string_view location) {
    Erase();
    ShowReading(location);
    CrawlFolder root;
    root.strFolderLong = location;
    root.strFolderShort = ShortFormFor(root.strFolderLong);
    folders_.push_back(std::move(root));
    isBuilt_ = true;
    ahead_ = std::make_unique<platform::ReadAhead>(session_.files(), wish_);
    ahead_->WhileWaiting([this] { return GoesOn(); });
    takesRootOver_ = HasListingOf(location);
    // The walk over the location alone has had its files.
    if (!takesRootOver_) Order(folders_.front(), true);
}

// A walk over the location alone may have listed it just now; to list it again shall not take
// longer than what came of that is old.
bool FolderList::HasListingOf(std::string_view folder) const {
    return lastListed_ && lastFolder_ == folder &&
           session_.platform.clock.Steady() < listingLastsUntil_;
}

void FolderList::NoteListed(std::string_view folder,
                            std::shared_ptr<const platform::FolderListing> names,
                            std::int64_t begunAt) {
    lastListed_ = std::move(names);
    lastFolder_ = folder;
    const std::int64_t now = session_.platform.clock.Steady();
    listingLastsUntil_ = now + std::max(kListingLasts, now - begunAt);
}

void FolderList::Order(const CrawlFolder& folder, bool isForNames) {
    if (ahead_ && folder.isWalkable) ahead_->OrderVisit(folder.strFolderLong, isForNames);
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
            {"Building another list of folders with - ", shown_.Of(folder.strFolderLong)});
        session_.Yield();
        if (IsInterrupted()) return;
    }
}

void FolderList::DropFactsTo(std::size_t index) {
    CrawlFolder& folder = folders_[index];
    if (coming_ && index == comingIndex_) {
        coming_.reset();
        folder.hasFacts = false;
    }
    if (folder.hasFacts) facts_.DropBefore(folder.firstFacts + folder.visit.wanted.size());
}

const platform::FolderListing& FolderList::NamesOf(std::size_t index) {
    static const platform::FolderListing kNone;
    CrawlFolder& folder = folders_[index];
    if (!folder.isListed) {
        folder.isListed = true;
        const std::string_view routine = index == 0 ? "FindFilesAtRoot" : "FindFilesInSubFolders";
        if (folder.isWalkable) ListLive(index, routine);
    }
    return folder.visit.names ? *folder.visit.names : kNone;
}

// By another thread where there is one, so that the user is heard while a slow disk lists it.
void FolderList::ListLive(std::size_t index, std::string_view routine) {
    CrawlFolder& folder = folders_[index];
    if (session_.files().AllowsReadingThreads()) {
        const auto& wish = index == 0 ? rootWish_ : platform::VisitWish();
        auto ahead =
            std::make_unique<platform::FolderAhead>(session_.files(), folder.strFolderLong, wish);
        ahead->WhileWaiting([this] { return GoesOn(); });
        const std::int64_t begunAt = session_.platform.clock.Steady();
        const bool isTaken = ahead->TakeNames(folder.visit);
        if (!isTaken && IsInterrupted()) return;
        if (isTaken && folder.visit.names) {
            NoteListed(folder.strFolderLong, folder.visit.names, begunAt);
            folder.isVisited = wish.wants != nullptr;
            folder.hasFacts = wish.facts;
            if (folder.hasFacts) coming_ = std::move(ahead);
            comingIndex_ = index;
            return;
        }
    }
    folder.visit.names = ListNow(index, routine, true);
}

bool FolderList::ReadFactsOf(std::size_t index, const std::vector<std::uint32_t>& files) {
    if (!session_.files().AllowsReadingThreads()) return false;
    coming_ = std::make_unique<platform::FolderAhead>(
        session_.files(), folders_[index].strFolderLong, folders_[index].visit.names, files);
    coming_->WhileWaiting([this] { return GoesOn(); });
    comingIndex_ = index;
    return true;
}

bool FolderList::GoesOn() const {
    session_.Yield();
    return !IsInterrupted();
}

bool FolderList::HasNothing(std::size_t index) {
    const auto names = ListNow(index, "FindEmptyFoldersInSubFolders", true);
    return names && names->Size() == 0;
}

// A folder that can't be read has no objects, and is told if the search wants them.
std::shared_ptr<const platform::FolderListing>
FolderList::ListNow(std::size_t index, std::string_view routine, bool counts) {
    const CrawlFolder& folder = folders_[index];
    const session::ErrorContext context{.routine = routine,
                                        .moduleName = "frmSearch",
                                        .object = session::kUnreadObject,
                                        .path = folder.Short(),
                                        .searchOrDestination = folders_.front().strFolderLong};
    lastListed_.reset();
    const std::int64_t begunAt = session_.platform.clock.Steady();
    const UnreadCandidate object{
        .path = folder.strFolderLong, .isFolder = true, .mustExist = index == 0, .counts = counts};
    auto names = std::make_shared<platform::FolderListing>();
    const auto done = ReadOrNote(session_, object, context, [&]() -> platform::Result<void> {
        TX_TRY_ASSIGN(const auto opened, session_.files().Open(folder.strFolderLong));
        return opened->List(*names);
    });
    if (!done) return nullptr;
    NoteListed(folder.strFolderLong, std::move(names), begunAt);
    return lastListed_;
}

// The visit that was ordered for a folder, if it could be read.
bool FolderList::TakeAhead(CrawlFolder& folder) {
    folder.isVisited = ahead_->TakeVisit(folder.visit) && folder.visit.names;
    folder.hasFacts = !folder.visit.facts.empty();
    folder.firstFacts = facts_.Add(std::exchange(folder.visit.facts, {}));
    return folder.isVisited;
}

void FolderList::ReadFolder(std::size_t index, bool addFolders, bool countContent) {
    folders_[index].isListed = true;
    if (!folders_[index].isWalkable) return;
    const bool isAtHand = index == 0 && takesRootOver_;
    if (isAtHand) {
        folders_[index].visit.names = lastListed_;
    } else if (!TakeAhead(folders_[index])) {
        if (IsInterrupted()) return;
        folders_[index].visit.names =
            ListNow(index, readsChildren_ ? "BuildSubFoldersArray" : "BuildSubFoldersArrayLevelOne",
                    addFolders);
    }
    lastListed_.reset();
    const auto names = folders_[index].visit.names; // the list grows meanwhile
    for (std::size_t i = 0; names && i < names->Size(); ++i) {
        const platform::FolderEntry entry = (*names)[i];
        const bool goesOn = entry.isFolder ? TakeFolder(index, entry, addFolders)
                                           : TakeFile(index, entry, countContent);
        if (!goesOn) return;
    }
}

// Tells of names that can't be listed.
bool FolderList::IsTakable(std::size_t index, const platform::FolderEntry& entry) {
    const std::string& folder = folders_[index].strFolderLong;
    if (entry.name.ends_with(' ')) ReportTrailingSpaces(session_, entry.name, folder);
    return IsNameValid(session_, entry.name, folder, false);
}

// One name of a folder. False when the user stops or skips.
bool FolderList::TakeFile(std::size_t index, const platform::FolderEntry& entry,
                          bool countContent) {
    const bool isTakable = IsTakable(index, entry);
    session_.Yield();
    if (IsInterrupted()) return false;
    if (!isTakable) return true;
    ++folders_[index].intFilesInFolder;
    if (countContent) counters_.CountFileSeen();
    return !IsInterrupted();
}

bool FolderList::TakeFolder(std::size_t index, const platform::FolderEntry& entry,
                            bool addFolders) {
    const std::string path = text::Concat({folders_[index].strFolderLong, "\\", entry.name});
    if (IsNestedRecoveryFolder(path)) {
        if (entry.name.ends_with(' ')) {
            ReportTrailingSpaces(session_, entry.name, folders_[index].strFolderLong);
        }
        session::LogTimed(
            session_,
            fmt::format(" Skipped {} as nested Recovery-Mode folders are not allowed (Ubuntu).",
                        session_.Shown(path)));
        return true;
    }
    const bool isTakable = IsTakable(index, entry);
    session_.Yield();
    if (IsInterrupted()) return false;
    if (!isTakable) return true;
    ++folders_[index].intFoldersInFolder;
    if (addFolders) AddToFolderArray(index, entry);
    session_.Yield();
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
    if (readsChildren_) Order(folder, false);
    folders_.push_back(std::move(folder));
    counters_.CountFolderSeen();
}

} // namespace tarvix::search
