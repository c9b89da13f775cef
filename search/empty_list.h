#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
struct SessionState;
} // namespace tarvix::session

namespace tarvix::search {

struct SearchRequest;

// What a list without rows says: that a search runs, that it found nothing, or how to begin one.
std::string_view EmptyListText(const session::SessionState& state);

// What a user can do about a search that found nothing.
enum class WayOut { kNone, kSubfolders, kLeftOut, kUnread, kTests, kNot, kKind };
struct EmptyReason {
    WayOut way = WayOut::kNone; // none where the options forbid it
    std::string why;            // "12 subfolders were not searched."
    std::string button;         // what takes the way out says
    bool operator==(const EmptyReason&) const = default;
};

// "*.mp3 in ~/Music": what the boxes ask for.
std::string SearchTitle(const session::Session& session);

// "No object matches *.mp3 in ~/Music", and why that may be, what was left out first. Nothing
// while a search runs, where the list has rows and where nothing was searched.
std::string EmptyListTitle(const session::Session& session);
std::vector<EmptyReason> EmptyListReasons(const session::Session& session);

// Counts, for a search without subfolders that found nothing, those right below its locations.
void CountUnsearched(session::Session& session, const SearchRequest& request);

// Does as a user would who changes the box in question and searches again.
void TakeWayOut(session::Session& session, WayOut way);

} // namespace tarvix::search
