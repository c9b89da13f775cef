#include "search/search_strings.h"

#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/like.h"

#include <fmt/core.h>

namespace tarvix::search {

namespace {

struct Forms {
    int bothEnds = 0;
    bool endsWith = false;   // a star only at the front
    bool beginsWith = false; // a star only at the back

    void Note(std::string_view piece) {
        const bool front = piece.starts_with('*');
        const bool back = piece.ends_with('*');
        if (front && back) ++bothEnds;
        if (front && !back) endsWith = true;
        if (back && !front) beginsWith = true;
    }
    bool MayOverlap() const {
        return (bothEnds > 0 && (beginsWith || endsWith)) || (endsWith && beginsWith) ||
               bothEnds > 1;
    }
};

bool IsBatchAction(std::string_view action) {
    return action == "Automated Playlist Gen" || action == "Automated Move" ||
           action == "Automated Playlist Gen Full";
}

} // namespace

SearchStrings ParseSearchFor(std::string_view text) {
    SearchStrings result;
    Forms forms;
    const auto pieces = text::Split(text, '|');
    std::string_view last; // a bar at the end leaves an empty piece, which is none
    for (const std::string_view piece : pieces) {
        if (!piece.empty()) last = piece;
        if (piece.empty() || result.strings.size() == kSearchStringLimit) continue;
        const bool isPlain = piece.find_first_of(".*?") == piece.npos;
        result.strings.push_back(isPlain ? fmt::format("*{}*", piece) : std::string(piece));
        forms.Note(result.strings.back());
    }
    result.blnRecycleAllowed = text::Like(text::Lower(last), "*recyc*");
    if (result.strings.empty()) result.strings.emplace_back("*");
    result.blnNotExclusive = forms.MayOverlap();
    return result;
}

void ConfirmSearchStrings(session::Session& session, const SearchStrings& strings) {
    if (strings.blnNotExclusive && !IsBatchAction(session.state.strAction)) {
        const int answer = session.MsgBox(
            session::PromptId::kStringsOverlap,
            "Search strings may not be mutually exclusive\r\nWould you like to cancel?");
        if (answer == session::kYes) session.state.blnStopClicked = true;
    }
    if (strings.strings.size() < 2) return;
    auto& chkNot = session.frmSearch.chkNot;
    if (chkNot.Value == 1) {
        session.MsgBox(
            session::PromptId::kNotTurnedOff,
            "Turning off NOT selection. It is not allowed with multiple search strings.");
    }
    chkNot.Value = 0;
    chkNot.Visible = false;
}

} // namespace tarvix::search
