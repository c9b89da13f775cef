#pragma once

#include "search/folder_list.h"
#include "search/name_checks.h"

#include <cstdint>
#include <vector>

namespace tarvix::search {

// The files of one folder that match, by their index in its names; those that its visit found
// already are not matched with a single string again.
std::vector<std::uint32_t> MatchingNames(FolderList& list, const NameMatch& match,
                                         std::size_t index);

} // namespace tarvix::search
