#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

// What is to be written, as values. Read once from the action window, then only handed on.
namespace tarvix::generate {

enum class ListKind : std::uint8_t {
    kNames,
    kPaths,
    kTargets,   // what the selected shortcuts lead to
    kPage,      // a web page
    kLocations, // the search locations
    kNumbers,
};

// The text of each entry of a web page.
enum class PageText : std::uint8_t { kPathAndName, kPath, kName, kRelative, kFolder };

// Which header a playlist begins with.
enum class PlaylistHeader : std::uint8_t { kNone, kShort, kAutomated };

// The lines of a numeric increment.
struct NumberPlan {
    std::int64_t start = 1;
    std::int64_t end = 100;
    std::string picture;  // of the numbers; empty for the plain number
    std::string lineText; // its first "*" is the number's place
};

struct ListRequest {
    std::string strAction;
    ListKind kind = ListKind::kPaths;
    std::string file;          // drive path
    bool isPathList = false;   // each entry must be read back as a path
    bool isPlaylist = false;   // its entries are for players
    bool addsPathOnly = false; // a second file holds the folders
    bool addsEof = false;
    PageText pageText = PageText::kPathAndName;
    std::vector<std::string> locations;
    NumberPlan numbers;

    // Playlists.
    PlaylistHeader header = PlaylistHeader::kNone;
    bool isRelative = false;   // entries begin at the playlist's own folder
    bool addsComments = false; // of missing ranks
    bool findsSimilar = false;
    std::string strSearchFor;
    std::int64_t deviation = 0; // bytes
    std::string similarFolder;  // looked through for similar names; empty for none
};

// Which list the action writes; nothing for one that writes none.
std::optional<ListKind> ListKindOf(std::string_view action);

// The request that stands in the action window for the action in force. Its file is the one that
// will be written.
ListRequest ReadListRequest(const session::Session& session);

// The size window as it may be typed: a value above 2147483648 is cut to ten digits, or to nine if
// it has ten.
std::string CutDeviation(std::string_view typed);

// Whether the file ends in "*EOF".
bool EndsInMark(const ListRequest& request);

// The answer to what the text of a page's entries should be, as one of "N", "P", "PN", "R", "F".
std::string ReadPageText(std::string_view answer);

} // namespace tarvix::generate
