#pragma once

#include "results/columns.h"

#include <cstddef>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

class ResultList;

// A cell of the list as people read it: columns of paths in the form that `PathForm` names, all
// others as they are. Names in other columns are still in drive form (platform::ForDisplay).
std::string ShownCell(const session::Session& session, std::size_t row, Column column);
// The same of the row's tip in Expert Mode.
std::string ShownTip(const session::Session& session, std::size_t row, Column column);

// What programs read of a cell: the disk's own bytes, its paths in the form that `PathForm` names.
std::string PlainCell(const session::Session& session, const ResultList& rows, std::size_t row,
                      Column column);
// The same behind what `out` holds.
void AppendPlainCell(std::string& out, const session::Session& session, const ResultList& rows,
                     std::size_t row, Column column);

} // namespace tarvix::results
