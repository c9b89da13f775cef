#include "search/empty_list.h"

#include "platform/file_system.h"
#include "results/result_list.h"
#include "search/left_out.h"
#include "search/search_request.h"
#include "session/native_entry.h"
#include "session/session.h"
#include "session/user_input.h"
#include "text/characters.h"
#include "text/format.h"

#include <fmt/core.h>

#include <array>

namespace tarvix::search {

namespace {

using session::Session;

bool HasLooked(const session::SessionState& state) {
    return state.lngSeenFiles > 0 || state.lngFilesFound > 0 || state.lngSeenFolders > 0 ||
           state.leftOut.foundNothing;
}

bool IsTold(const Session& session) {
    const auto& state = session.state;
    return !state.blnSearching && session.rows->Count() == 0 && state.leftOut.foundNothing;
}

std::string CountedAs(std::int64_t count, std::string_view one, std::string_view several) {
    return fmt::format("{} {}", text::Format(count, "#,##0"), count == 1 ? one : several);
}

void AddSubfolders(const Session& session, std::vector<EmptyReason>& reasons) {
    const std::int64_t count = session.state.leftOut.subfolders;
    if (count == 0) return;
    const bool isFree = session.state.options.blnAllowUserSelectSubfolders;
    reasons.push_back(
        {isFree ? WayOut::kSubfolders : WayOut::kNone,
         CountedAs(count, "subfolder was not searched.", "subfolders were not searched."),
         isFree ? "Search Subfolders Too" : ""});
}

void AddLeftOut(const Session& session, std::vector<EmptyReason>& reasons) {
    const auto& leftOut = session.state.leftOut;
    if (leftOut.Total() == 0) return;
    reasons.push_back(
        {WayOut::kLeftOut, fmt::format("{}.", LeftOutText(leftOut)), "Find Them Too"});
}

void AddUnread(const Session& session, std::vector<EmptyReason>& reasons) {
    const auto count = static_cast<std::int64_t>(session.state.unread.All().size());
    if (count == 0) return;
    reasons.push_back({WayOut::kUnread,
                       CountedAs(count, "object could not be read.", "objects could not be read."),
                       "Show What Wasn't Read"});
}

void AddTests(const Session& session, std::vector<EmptyReason>& reasons) {
    const auto& form = session.frmSearch;
    const bool bySize = form.chkSize.Value == 1;
    const bool byDate = form.chkDate.Value == 1;
    if (!bySize && !byDate) return;
    const std::string_view tests = bySize && byDate ? "size and date" : bySize ? "size" : "date";
    reasons.push_back({WayOut::kTests, fmt::format("Only objects of a certain {} count.", tests),
                       bySize && byDate ? "Search without Size and Date"
                       : bySize         ? "Search without Size"
                                        : "Search without Date"});
}

void AddNot(const Session& session, std::vector<EmptyReason>& reasons) {
    if (session.frmSearch.chkNot.Value != 1) return;
    reasons.push_back({WayOut::kNot, "Names that match were passed over.", "Search without NOT"});
}

void AddKind(const Session& session, std::vector<EmptyReason>& reasons) {
    constexpr std::array<std::string_view, 5> kOnly{"files", "empty files", "", "folders",
                                                    "empty folders"};
    const int kind = session.frmSearch.optFilesVsDirs.Chosen();
    if (kind < 0 || kOnly[static_cast<std::size_t>(kind)].empty()) return;
    reasons.push_back(
        {WayOut::kKind,
         fmt::format("Only {} were looked for.", kOnly[static_cast<std::size_t>(kind)]),
         "Look for All Objects"});
}

std::int64_t FoldersIn(Session& session, const std::string& folder) {
    if (folder.empty()) return 0;
    platform::FolderListing listing;
    const auto opened = session.files().Open(folder);
    if (!opened || !(*opened)->List(listing)) return 0;
    std::int64_t count = 0;
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        if (listing[i].IsWalkable()) ++count;
    }
    return count;
}

void SetBox(Session& session, fields::CheckBox& box, std::string_view value) {
    if (box.ValueText() != value) (void)session::UserSet(session, box, value);
}

} // namespace

std::string_view EmptyListText(const session::SessionState& state) {
    if (state.blnSearching) return "Searching...";
    return HasLooked(state) ? "No object matches."
                            : "Say what to search for and where, then press Search.";
}

std::string SearchTitle(const Session& session) {
    const auto& form = session.frmSearch;
    const std::string_view what = text::Trim(form.cmbSearchFor.Text.Get());
    return fmt::format("{} in {}", what.empty() ? "Everything" : what,
                       session::EntryShown(session, form.cmbDir, form.cmbDir.Text.Get()));
}

std::string EmptyListTitle(const Session& session) {
    if (!IsTold(session)) return {};
    if (session.state.blnStopClicked) return "The search was stopped before it found anything";
    const bool isAll = text::Trim(session.frmSearch.cmbSearchFor.Text.Get()).empty();
    return fmt::format("{}{}", isAll ? "Nothing was found: " : "No object matches ",
                       SearchTitle(session));
}

std::vector<EmptyReason> EmptyListReasons(const Session& session) {
    std::vector<EmptyReason> reasons;
    if (!IsTold(session)) return reasons;
    for (const auto add : {AddSubfolders, AddLeftOut, AddUnread, AddTests, AddNot, AddKind}) {
        add(session, reasons);
    }
    return reasons;
}

void CountUnsearched(Session& session, const SearchRequest& request) {
    auto& leftOut = session.state.leftOut;
    leftOut.subfolders = 0;
    leftOut.foundNothing = session.rows->Count() == 0 && !session.state.IsBatch();
    if (request.subfolders || !leftOut.foundNothing) return;
    for (const SearchLocation& location : request.locations.folders) {
        leftOut.subfolders += FoldersIn(session, location.folder);
    }
}

void TakeWayOut(Session& session, WayOut way) {
    auto& form = session.frmSearch;
    switch (way) {
    case WayOut::kNone:
        return;
    case WayOut::kLeftOut:
        (void)session::UserClick(session, form.cmdLeftOut);
        return;
    case WayOut::kUnread:
        (void)session::UserClick(session, form.cmdUnread);
        return;
    case WayOut::kSubfolders:
        SetBox(session, form.chkIncludeSubFolders, "1");
        break;
    case WayOut::kTests:
        SetBox(session, form.chkSize, "0");
        SetBox(session, form.chkDate, "0");
        break;
    case WayOut::kNot:
        SetBox(session, form.chkNot, "0");
        break;
    case WayOut::kKind:
        (void)session::UserSet(session, form.optFilesVsDirs[static_cast<int>(Kind::kAllObjects)],
                               "1");
        break;
    }
    (void)session::UserClick(session, form.cmdSearch);
}

} // namespace tarvix::search
