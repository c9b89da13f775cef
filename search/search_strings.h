#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

constexpr int kSearchStringLimit = 99;

// A typed text as patterns.
struct SearchStrings {
    std::vector<std::string> strings; // never empty once parsed, at most 99
    bool blnRecycleAllowed = false;   // the last one names a recycle folder
    bool blnNotExclusive = false;     // some object may match more than one
};

// Cuts the text at each "|". A piece without ".", "*" and "?" is taken as part of a name.
SearchStrings ParseSearchFor(std::string_view text);

// Asks whether strings that may overlap are meant, except in a batch; a Yes to the cancelling sets
// `blnStopClicked`. With several strings it switches `chkNot` off, hides it, and tells so if it was
// on.
void ConfirmSearchStrings(session::Session& session, const SearchStrings& strings);

} // namespace tarvix::search
