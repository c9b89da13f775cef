#pragma once

#include <cstddef>
#include <vector>

namespace tarvix::fields {
class ComboBox;
}

namespace tarvix::session {

struct Session;

// The positions of a box's entries as people are offered them: what was used last comes first, then
// its fixed rows as they stand. A box without a history keeps its order.
std::vector<std::size_t> RecentFirst(const Session& session, const fields::ComboBox& box);

} // namespace tarvix::session
