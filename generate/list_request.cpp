#include "generate/list_request.h"

#include "generate/digits.h"
#include "generate/file_names.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/numbers.h"
#include "text/paths.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvix::generate {

namespace {

using session::Session;

constexpr std::array<std::pair<std::string_view, ListKind>, 6> kKinds{{
    {"Names Only", ListKind::kNames},
    {"Path and Names", ListKind::kPaths},
    {"Target Paths", ListKind::kTargets},
    {"CreateHTML", ListKind::kPage},
    {"Create MPL From Combo Box", ListKind::kLocations},
    {"Numeric Increment", ListKind::kNumbers},
}};

constexpr std::array<std::pair<std::string_view, PageText>, 5> kPageTexts{{
    {"N", PageText::kName},
    {"P", PageText::kPath},
    {"PN", PageText::kPathAndName},
    {"R", PageText::kRelative},
    {"F", PageText::kFolder},
}};

// What answers in words mean: the first that fits wins.
constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kPageWords{{
    {"N", "N"},
    {"PATH\\", "PN"},
    {"PATH", "P"},
    {"PARE", "F"},
    {"R", "R"},
    {"'N", "N"},
    {"'PATH\\", "PN"},
    {"'PATH", "P"},
    {"'PARE", "F"},
    {"'R", "R"},
}};

template <class Table, class Value>
Value Find(const Table& table, std::string_view word, Value otherwise) {
    const auto row = std::ranges::find(table, word, [](const auto& pair) { return pair.first; });
    return row == table.end() ? otherwise : row->second;
}

bool IsAutomated(std::string_view action) {
    return action.starts_with("Automated Playlist Gen");
}

std::string FileOf(const Session& session, bool isAutomated) {
    const std::string typed = RemoveBars(session.frmDialog.cmbDir.Text.Get());
    if (!isAutomated) return typed;
    return text::ParentFolderSlash(typed) + KeepLastDotOnly(text::FileNameOf(typed));
}

ListKind KindOf(const session::SessionState& state, bool isAutomated) {
    if (!isAutomated) return Find(kKinds, state.strAction, ListKind::kPaths);
    return state.blnAutoPlayListFullPaths ? ListKind::kPaths : ListKind::kNames;
}

void ReadPlaylist(const Session& session, bool isAutomated, ListRequest& request) {
    const auto& form = session.frmDialog;
    const bool isNamesOrPaths =
        request.kind == ListKind::kNames || request.kind == ListKind::kPaths;
    const bool isKind = isNamesOrPaths && session.state.strFileKind == "Create M3u";
    request.header = isAutomated ? PlaylistHeader::kAutomated
                     : isKind    ? PlaylistHeader::kShort
                                 : PlaylistHeader::kNone;
    request.isPlaylist = isAutomated || isKind;
    request.isRelative = isKind && form.chkRelative.Value == 1;
    request.addsComments = request.isPlaylist && form.chkComments.Value == 1;
    // What reads a list of paths would take each comment for one.
    request.findsSimilar =
        isNamesOrPaths && !isAutomated && !request.isPathList && form.chkFindSimilar.Value == 1;
    request.strSearchFor = session.frmSearch.cmbSearchFor.Text;
    request.deviation = ReadDigits(form.txtDeviation.Text.Get()).value_or(0);
}

} // namespace

std::optional<ListKind> ListKindOf(std::string_view action) {
    const auto row = std::ranges::find(kKinds, action, [](const auto& pair) { return pair.first; });
    return row == kKinds.end() ? std::nullopt : std::optional(row->second);
}

ListRequest ReadListRequest(const Session& session) {
    const auto& state = session.state;
    const bool isAutomated = IsAutomated(state.strAction);
    ListRequest request;
    request.strAction = state.strAction;
    request.file = FileOf(session, isAutomated);
    request.kind = KindOf(state, isAutomated);
    const bool isText = state.strFileKind == "Create Txt" && !isAutomated;
    request.addsPathOnly = request.kind == ListKind::kPaths && isText;
    request.isPathList = request.kind == ListKind::kLocations ||
                         (request.kind == ListKind::kPaths &&
                          (state.strFileKind == "Create MPL" || IsPathListName(request.file)));
    request.addsEof = session.frmDialog.chkAddEOF.Value == 1;
    request.pageText = Find(kPageTexts, state.strHtmlText, PageText::kPathAndName);
    request.locations = state.strSearchFolder;
    ReadPlaylist(session, isAutomated, request);
    return request;
}

std::string CutDeviation(std::string_view typed) {
    constexpr std::int64_t kMost = 2'147'483'648;
    constexpr std::size_t kTen = 10;
    const std::size_t length = text::Length(typed);
    const bool isTooBig =
        text::IsAllDigits(typed) && (length > kTen || ReadDigits(typed).value_or(0) > kMost);
    if (!isTooBig) return std::string(typed);
    return std::string(text::Left(typed, length > kTen ? kTen : kTen - 1));
}

bool EndsInMark(const ListRequest& request) {
    if (IsPathListName(request.file)) return true;
    return !IsPlaylistName(request.file) && request.addsEof;
}

std::string ReadPageText(std::string_view answer) {
    const std::string upper = text::Upper(answer);
    const auto word = std::ranges::find_if(
        kPageWords, [&](const auto& row) { return upper.starts_with(row.first); });
    if (word != kPageWords.end()) return std::string(word->second);
    const bool isOne = std::ranges::find(kPageTexts, upper, [](const auto& row) {
                           return row.first;
                       }) != kPageTexts.end();
    return isOne ? upper : "PN";
}

} // namespace tarvix::generate
