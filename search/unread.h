#pragma once

#include "session/attempt.h"
#include "session/session.h"

#include <optional>
#include <string>
#include <utility>

namespace tarvix::search {

// Raised at the end of each search that left something out; `state.unread` has it.
constexpr std::string_view kUnreadTold = "frmSearch.Unread_Told";

// What a statement of a search reads.
struct UnreadCandidate {
    std::string path; // drive path
    bool isFolder = false;
    bool mustExist = false; // else one that has gone is left out without a word
    bool counts = true;     // whether the search wants what is in it
};

// What is done when it can't be read: noted once, with a record, and asked about where error 52
// would be. Nothing for what the usual rule decides.
std::optional<int> HandleUnread(session::Session& session, const UnreadCandidate& object,
                                const session::ErrorContext& context,
                                const platform::PlatformError& error);

// Runs a statement that reads an object, again as long as the user wants it so.
template <class Statement>
auto ReadOrNote(session::Session& session, const UnreadCandidate& object,
                const session::ErrorContext& context, Statement&& statement) {
    auto attempted = session::Attempt(session, context, std::forward<Statement>(statement),
                                      [&](const platform::PlatformError& error) {
                                          return HandleUnread(session, object, context, error);
                                      });
    // What the usual rule passed over is left out no less.
    if (!attempted && attempted.ErrorNumber() == platform::kBadFileName && object.counts) {
        session.state.unread.Add({object.path, object.isFolder, platform::kBadFileName});
    }
    return attempted;
}

// Hides the count of what could not be read; and shows it, and tells of it, behind a search.
void HideUnread(session::Session& session);
void ShowUnread(session::Session& session);

// The button that shows the list, and the one that closes it.
void AddUnreadEvents(session::EventTable& events);

} // namespace tarvix::search
