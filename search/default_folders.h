#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// Fills the places behind the configured search folders with the predefined ones that exist here,
// and shows the titles of all in "Search Location(s)", each with a blank in front. Rows of several
// folders get their list file.
void BuildDefaultFolderList(session::Session& session);

// Writes the folders of a titled row to "<title>.mpl" in the data folder, as written lists have
// them, and logs it. A file that is there stays as it is; without folders none is made.
void WriteDefaultSearchMPL(session::Session& session, std::string_view title);

// The place of the row that a text such as " All hard drives " names, or kDefaultFolderLimit.
std::size_t FindTitle(const session::Session& session, std::string_view text);

} // namespace tarvix::search
