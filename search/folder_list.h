#pragma once

#include "platform/folder_ahead.h"
#include "platform/folder_listing.h"
#include "platform/folder_visit.h"
#include "platform/read_ahead.h"
#include "results/counters.h"
#include "search/facts_pool.h"
#include "search/search_request.h"
#include "session/paths/shown_folders.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// One folder of a location's list.
struct CrawlFolder {
    std::string strFolderLong;  // as people see it, no final "\"
    std::string strFolderShort; // in a form that opens; empty while it is the same
    std::uint32_t intFilesInFolder = 0;
    std::uint32_t intFoldersInFolder = 0;
    // Its names, null where it couldn't be read; and if it was visited for the search strings, the
    // files that fit one of them. Their facts, where those are wanted, lie in the list's pool.
    platform::FolderVisit visit;
    std::size_t firstFacts = 0;
    bool hasFacts = false;
    bool isVisited = false;
    bool isListed = false;  // its names were read, or couldn't be
    bool isWalkable = true; // false for links and mounts that a crawl doesn't enter

    const std::string& Short() const {
        return strFolderShort.empty() ? strFolderLong : strFolderShort;
    }
};

// The flat, breadth-first list of a location's folders. Index 0 is the location. It serves every
// search string of the location: the names of the files it came by are kept, with the facts of
// those that fit a string, so that the walks over it read no folder twice.
//
//   level:  0 | 1       | 2               |
//   index:  0 | 1  2  3 | 4  5  6  7  ... |      while a level is read, the next one grows behind
//   it
class FolderList {
  public:
    // `request` tells whether subfolders and recycle folders belong to the list. Both must outlive
    // this.
    FolderList(session::Session& session, results::Counters& counters, const SearchRequest& request)
        : session_(session), counters_(counters), request_(request) {}

    void Erase();
    bool IsBuilt() const { return isBuilt_; }
    std::size_t Count() const { return folders_.size(); }
    const CrawlFolder& At(std::size_t index) const { return folders_[index]; }
    std::int64_t HighFolder() const { return static_cast<std::int64_t>(folders_.size()) - 1; }

    // What visits of the folders of the following locations are to bring, and what the walk over a
    // location alone wants of it.
    void Want(platform::VisitWish wish, platform::VisitWish ofRoot) {
        wish_ = std::move(wish);
        rootWish_ = std::move(ofRoot);
    }

    // The deep builder. Without subfolders it still reads two levels: the children of the location
    // are listed, and what they hold is counted. Returns early when the user stops or skips.
    void BuildSubFoldersArray(std::string_view location);
    // The location and its children only; the children's content is neither read nor counted.
    void BuildSubFoldersArrayLevelOne(std::string_view location);
    // Reads the location alone, for a walk that takes no subfolder.
    void BuildRootOnly(std::string_view location);
    // The second list, for search strings with "[" or "#". It holds the same folders as the first,
    // so it is a pass over that one that tells nothing twice and counts nothing.
    void BuildSecond();

    // The names of one folder, read now if the builder didn't; empty where they can't be read.
    const platform::FolderListing& NamesOf(std::size_t index);
    // Whether a folder can be read now and holds neither files nor folders.
    bool HasNothing(std::size_t index);
    // What the visit of a folder found of the file that is the `place`-th of those that fit.
    platform::BriefFacts FactsOf(std::size_t index, std::size_t place) const {
        if (coming_ && index == comingIndex_) return coming_->FactsAt(place);
        return facts_.At(folders_[index].firstFacts + place);
    }
    // Has these files' facts read in the background, where that can be done; false else. They
    // count as those that fit.
    bool ReadFactsOf(std::size_t index, const std::vector<std::uint32_t>& files);
    // Nobody asks for the facts of files up to this folder any more.
    void DropFactsTo(std::size_t index);

  private:
    void ShowReading(std::string_view folder);
    void Start(std::string_view location);
    void Order(const CrawlFolder& folder, bool isForNames);
    bool HasListingOf(std::string_view folder) const;
    void NoteListed(std::string_view folder, std::shared_ptr<const platform::FolderListing> names,
                    std::int64_t begunAt);
    void ReadFolder(std::size_t index, bool addFolders, bool countContent);
    std::shared_ptr<const platform::FolderListing> ListNow(std::size_t index,
                                                           std::string_view routine, bool counts);
    void ListLive(std::size_t index, std::string_view routine);
    bool GoesOn() const;
    bool TakeAhead(CrawlFolder& folder);
    bool TakeFile(std::size_t index, const platform::FolderEntry& entry, bool countContent);
    bool TakeFolder(std::size_t index, const platform::FolderEntry& entry, bool addFolders);
    bool IsTakable(std::size_t index, const platform::FolderEntry& entry);
    void AddToFolderArray(std::size_t parent, const platform::FolderEntry& entry);
    bool IsInterrupted() const;
    std::string ShortFormFor(const std::string& path);

    session::Session& session_;
    session::ShownFolders shown_{session_};
    results::Counters& counters_;
    const SearchRequest& request_;
    std::deque<CrawlFolder> folders_;
    FactsPool facts_;
    platform::VisitWish wish_;
    platform::VisitWish rootWish_;
    std::unique_ptr<platform::FolderAhead> coming_; // the facts of one folder
    std::size_t comingIndex_ = 0;
    // What was listed by itself last, null for none, and how long it is believed.
    std::shared_ptr<const platform::FolderListing> lastListed_;
    std::string lastFolder_;
    std::int64_t listingLastsUntil_ = 0; // by the steady clock
    bool takesRootOver_ = false;
    std::unique_ptr<platform::ReadAhead> ahead_; // the folders of the list, in its order
    bool isBuilt_ = false;
    bool readsChildren_ = false;
};

} // namespace tarvix::search
