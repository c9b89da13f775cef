#pragma once

#include "platform/file_system.h"
#include "results/add_rows.h"
#include "results/link_cells.h"
#include "search/candidates.h"
#include "search/filters.h"
#include "search/folder_list.h"
#include "search/name_checks.h"
#include "search/search_request.h"
#include "search/walk_end.h"
#include "session/paths/shown_folders.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::search {

// The walks over one location's folder list for one search string. Each walk tests every object
// and adds a row for what passes; it ends at the next object after a stop or a skip.
class FindFamily {
  public:
    // All must outlive this.
    FindFamily(session::Session& session, results::Counters& counters, FolderList& list,
               Filters& filters, const SearchRequest& request);

    // A new location, which is the `intFolderIndex`-th of the request, from 1.
    void SetLocation(std::string_view folder, int intFolderIndex);
    // A new search string of that location, and what its rows share. Before the last one each walk
    // leaves the list as it is.
    void SetString(std::string_view searchString, results::RowSource source);

    // The location itself, once.
    WalkEnd FindFilesAtRoot();
    WalkEnd FindEmptyFilesAtRoot();
    // The list from index `i` on.
    WalkEnd FindFilesInSubFolders(std::size_t i);
    WalkEnd FindEmptyFilesInSubFolders(std::size_t i);
    WalkEnd FindFoldersInSubFolders(std::size_t i);
    WalkEnd FindFoldersInSubFoldersLikeOp(std::size_t i);
    WalkEnd FindEmptyFoldersInSubFolders(std::size_t i);
    WalkEnd FindEmptyFoldersInSubFoldersLikeOp(std::size_t i);
    WalkEnd FindFilesAndFoldersInSubFolders(std::size_t i);
    WalkEnd FindFilesAndFoldersInSubFoldersLikeOp(std::size_t i);

  private:
    enum class Files { kAny, kEmpty };
    enum class Folders { kAny, kEmpty };

    WalkEnd WalkRoot(Files which, std::string_view routine);
    WalkEnd WalkFiles(std::size_t index, Files which, bool oneEach, std::string_view routine);
    WalkEnd WalkFolder(std::size_t index, Folders which);
    bool IsSpecTooLong(std::size_t index, std::string_view routine);
    platform::VisitWish WishFor(const std::vector<std::string>& strings) const;
    platform::VisitWish WishBelow(platform::VisitWish wish) const;
    void FindCandidates(std::size_t index);
    std::optional<platform::ObjectFacts> VisitFacts(std::size_t index, std::size_t next) const;
    std::optional<platform::ObjectFacts> FolderFacts(std::size_t index, std::string_view name);
    bool AddFile(std::size_t index, std::string_view name, const platform::ObjectFacts& facts,
                 const TestedFacts& tested);
    platform::Result<platform::ObjectFacts> FactsNow(std::size_t index, std::string_view name);
    std::optional<platform::ObjectFacts> FactsOrNote(std::size_t index, std::string_view name,
                                                     std::string_view routine);
    bool TryFile(std::size_t index, std::string_view name, const platform::ObjectFacts& facts,
                 Files which);
    void NoteLeftOut(std::string_view name, const platform::ObjectFacts& facts, bool testsSize);
    bool TryLink(std::size_t index, std::string_view name,
                 std::optional<results::LinkCells>& links);
    bool IsEmptyFolder(std::size_t index);
    bool IsLastString() const;
    bool HoldsNames(std::size_t index);
    WalkEnd ForEach(std::size_t i, auto&& walk);
    WalkEnd Test() const;
    void MakeRoom(std::size_t i);
    const results::RowFolder* RowFolderOf(std::size_t index);
    platform::Result<platform::OpenFolder*> Opened(std::size_t index);
    void ShowCurrent(std::size_t index);

    session::Session& session_;
    session::ShownFolders shown_{session_};
    results::Counters& counters_;
    FolderList& list_;
    Filters& filters_;
    const SearchRequest& request_;
    bool readsLinks_; // a column shows what shortcuts hold, or a filter tests it
    results::LinkReader linkReader_;
    std::unique_ptr<NameMatch> match_;
    std::vector<std::unique_ptr<NameMatch>> earlier_; // of this location
    std::string searchString_;
    results::RowSource source_{1, {}};
    std::string location_;
    int intFolderIndex_ = 1;

    // The matches of the folder in hand, by their index in its names; where its visit took facts,
    // `factsAt_` has each one's place among these.
    std::vector<std::uint32_t> found_;
    std::vector<std::uint32_t> factsAt_;
    bool readsFacts_; // of what matches; else rows hold names alone

    // What rows of the folder in hand share, and that folder held open for facts.
    const results::RowFolder* rowFolder_ = nullptr;
    std::size_t rowFolderIndex_ = SIZE_MAX;
    std::unique_ptr<platform::OpenFolder> opened_;
    std::size_t openedIndex_ = SIZE_MAX;
    std::size_t heldIndex_ = SIZE_MAX; // whose names the list keeps
};

} // namespace tarvix::search
