#pragma once

#include "platform/file_system.h"
#include "results/add_rows.h"
#include "search/candidates.h"
#include "search/filters.h"
#include "search/folder_list.h"
#include "search/name_checks.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::search {

// How a walk ended.
enum class Outcome { kDone, kStopped, kSkipped };

// The walks over one location's folder list for one search string. Each walk tests every object
// and adds a row for what passes; it ends at the next object after a stop or a skip.
class FindFamily {
  public:
    FindFamily(session::Session& session, results::Counters& counters, FolderList& list,
               Filters& filters, const AttributeMasks& masks);

    // A new location.
    void SetLocation(std::string_view folder);
    // A new search string of that location.
    void SetString(std::string_view searchString, bool isNot);

    // The location itself, once.
    Outcome FindFilesAtRoot();
    Outcome FindEmptyFilesAtRoot();
    // The list from index `i` on; `i` is left behind the last folder walked.
    Outcome FindFilesInSubFolders(std::size_t& i);
    Outcome FindEmptyFilesInSubFolders(std::size_t& i);
    Outcome FindFoldersInSubFolders(std::size_t& i);
    Outcome FindFoldersInSubFoldersLikeOp(std::size_t& i);
    Outcome FindEmptyFoldersInSubFolders(std::size_t& i);
    Outcome FindEmptyFoldersInSubFoldersLikeOp(std::size_t& i);
    Outcome FindFilesAndFoldersInSubFolders(std::size_t& i);
    Outcome FindFilesAndFoldersInSubFoldersLikeOp(std::size_t& i);

  private:
    enum class Files { kAny, kEmpty };
    enum class Folders { kAny, kEmpty };

    Outcome WalkRoot(Files which, std::string_view routine);
    Outcome WalkFiles(std::size_t index, Files which, bool oneEach, std::string_view routine);
    Outcome WalkFolder(std::size_t index, Folders which);
    bool IsSpecTooLong(std::size_t index, std::string_view routine);
    void FindCandidates(std::size_t index);
    std::optional<platform::ObjectFacts> FactsNow(std::size_t index, std::string_view name);
    bool TryFile(std::size_t index, std::string_view name, const platform::ObjectFacts& facts,
                 Files which);
    void ReadAheadFrom(std::size_t i);
    bool IsEmptyFolder(std::size_t index);
    Outcome ForEach(std::size_t& i, auto&& walk);
    Outcome Test() const;
    const results::RowFolder* RowFolderOf(std::size_t index);
    platform::OpenFolder* Opened(std::size_t index);
    void ShowCurrent(std::size_t index);

    session::Session& session_;
    results::Counters& counters_;
    FolderList& list_;
    Filters& filters_;
    AttributeMasks masks_;
    std::unique_ptr<NameMatch> match_;
    std::string searchString_;
    std::string location_;
    bool isNot_ = false;

    // The matches of the folder in hand; `candidates_` while a walk over many folders reads ahead.
    std::unique_ptr<Candidates> candidates_;
    FolderCandidates found_;

    // What rows of the folder in hand share, and that folder held open for facts.
    const results::RowFolder* rowFolder_ = nullptr;
    std::size_t rowFolderIndex_ = SIZE_MAX;
    std::unique_ptr<platform::OpenFolder> opened_;
    std::size_t openedIndex_ = SIZE_MAX;
};

} // namespace tarvix::search
