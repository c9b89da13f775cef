#pragma once

#include "results/result_list.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// What a view of the list shows of it beyond the texts of its cells.

// Whether a spacer stands beside a group of two rows or more, and so sets something apart.
bool DividesGroups(const ResultList& rows, std::size_t spacer);

// What a row is, beyond a plain file; the first that holds.
enum class RowSign : std::uint8_t {
    kNone,
    kGone,   // sent to the trash since the search
    kCut,    // on the clipboard, to be moved
    kFailed, // in the last action
    kMoved,
    kRenamed,
    kReplacement, // of an edited playlist
    kEntry,       // the same
    kLink,
    kFolder,
};
constexpr std::size_t kRowSigns = static_cast<std::size_t>(RowSign::kFolder) + 1;
RowSign SignOf(const ResultRow& row);
// The same in words; empty for none.
std::string_view WordsOf(RowSign sign);

// The number of the search string that found the row first, from the second on; else 0.
int LaterPattern(const ResultRow& row);

// The folder that all rows from `first` on were searched in, or the deepest that holds these
// places, beginning with `folder`, which holds those of the rows before. Empty when there is none.
std::string CommonLocation(const ResultList& rows, std::size_t first, std::string folder);

// The Path cell as people read it, from that folder (drive form) on where it lies in it.
std::string PathFrom(const session::Session& session, std::size_t row, std::string_view folder);

// The size of a file in the largest unit that fits; empty where the cell is.
std::string ReadableSizeCell(const ResultList& rows, std::size_t row);
// All its bytes, as "11,612 bytes"; empty where the cell is.
std::string ExactSize(const ResultList& rows, std::size_t row);

} // namespace tarvix::results
