#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// A typed text as patterns.
struct SearchStrings {
    std::vector<std::string> strings; // never empty, at most 99
    bool blnRecycleAllowed = false;   // the last one names a recycle folder
    bool blnNotExclusive = false;     // some object may match more than one
};

// Cuts the text at each "|". A piece without ".", "*" and "?" is taken as part of a name.
SearchStrings SplitSearchFor(std::string_view text);

// Fills the table of search strings from the text, asks whether strings that may overlap are meant,
// and switches `chkNot` off when there are several.
void ParseSearchFor(session::Session& session, std::string_view text);

} // namespace tarvix::search
