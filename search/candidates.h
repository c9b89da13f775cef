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

// The facts of one folder's files, read in portions while those before are worked on.
class FactsAhead {
  public:
    // The names are those at `positions`, all of the folder at `index` of the list.
    FactsAhead(session::Session& session, FolderList& list, std::size_t index,
               const std::vector<std::uint32_t>& positions);

    // Those of the next position; none for a file that is gone, or when the user stops or skips.
    std::optional<platform::ObjectFacts> Next();

  private:
    platform::ReadAhead ahead_;
    std::vector<std::optional<platform::ObjectFacts>> portion_;
    std::size_t next_ = 0;
};

// The files of one folder that match, by their index in its names; those that its visit found
// already are not matched with a single string again.
std::vector<std::uint32_t> MatchingNames(FolderList& list, const NameMatch& match,
                                         std::size_t index);

} // namespace tarvix::search
