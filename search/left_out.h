#pragma once

#include "platform/object_facts.h"
#include "search/search_request.h"
#include "session/left_out.h"

#include <string>
#include <string_view>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::search {

// Raised at the end of each search whose attribute boxes left something out.
constexpr std::string_view kLeftOutTold = "frmSearch.LeftOut_Told";

// Counts an object that fits but for its attributes. One that lacks an attribute that was asked for
// is none of those.
void CountLeftOut(session::LeftOut& leftOut, const AttributeMasks& masks,
                  const platform::ObjectFacts& facts);

// "Left out: 16,012 links, 648 read only", the most first; empty when nothing was.
std::string LeftOutText(const session::LeftOut& leftOut);

// Hides what the last search left out; and shows it, and tells of it, behind a search. Nobody is
// told while a batch runs.
void HideLeftOut(session::Session& session);
void ShowLeftOut(session::Session& session);

// The button that turns the boxes in question grey and searches again.
void AddLeftOutEvents(session::EventTable& events);

} // namespace tarvix::search
