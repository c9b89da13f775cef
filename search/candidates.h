#pragma once

#include "platform/object_facts.h"
#include "platform/read_ahead.h"
#include "search/folder_list.h"
#include "search/name_checks.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// The files of one folder whose names match, by their place in FolderList::Names(), and the facts
// of each; none for a file that is gone.
struct FolderCandidates {
    std::vector<std::uint32_t> positions;
    std::vector<std::optional<platform::ObjectFacts>> facts;
};

// Matches the names of the list's folders a little ahead of the walk, so that facts are there when
// the walk comes by. Folders must be taken in ascending order, each at most once.
class Candidates {
  public:
    // Walks folders `first` and on. The list, and `match`, must outlive this.
    Candidates(session::Session& session, FolderList& list, const NameMatch& match,
               std::size_t first);

    void Take(std::size_t index, FolderCandidates& result);

  private:
    struct Ordered {
        std::size_t index;
        std::vector<std::uint32_t> positions;
    };
    void OrderUpTo(std::size_t index);

    session::Session& session_;
    FolderList& list_;
    const NameMatch& match_;
    platform::ReadAhead ahead_;
    std::size_t next_; // the first folder not ordered yet
    std::vector<Ordered> ordered_;
    std::size_t taken_ = 0;
};

// The facts of one folder's files, read in portions while those before are worked on.
class FactsAhead {
  public:
    // The names are those at `positions`, all of the folder at `index` of the list.
    FactsAhead(session::Session& session, const FolderList& list, std::size_t index,
               const std::vector<std::uint32_t>& positions);

    // Those of the next position; none for a file that is gone.
    std::optional<platform::ObjectFacts> Next();

  private:
    platform::ReadAhead ahead_;
    std::vector<std::optional<platform::ObjectFacts>> portion_;
    std::size_t next_ = 0;
};

// The names of one folder that can be listed at all: they match, they can be opened, and they don't
// end in a blank.
std::vector<std::uint32_t> MatchingNames(session::Session& session, const FolderList& list,
                                         const NameMatch& match, std::size_t index);

} // namespace tarvix::search
