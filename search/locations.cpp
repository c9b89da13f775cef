#include "search/locations.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "results/net_hood.h"
#include "search/default_folders.h"
#include "search/unread.h"
#include "session/paths/env_variables.h"
#include "session/paths/fake_roots.h"
#include "session/paths/recycle_folders.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/like.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace tarvix::search {

namespace {

std::string Framed(std::string_view piece) {
    return fmt::format("\r\n{0:-<74}\r\n{1}\r\n{0:-<74}\r\n\r\n", "", piece);
}

// A leading blank marks a title: it is replaced by the folders it stands for.
std::string ReplaceTitle(const session::Session& session, std::string_view text) {
    if (!text.starts_with(' ')) return std::string(text);
    const std::size_t bar = std::min(text.find('|'), text.size());
    const std::size_t place = FindTitle(session, text.substr(0, bar));
    if (place == session::kDefaultFolderLimit) return std::string(text);
    const std::string_view folders = session.state.options.strDefSearchFolder[place];
    return fmt::format("{}{}", text::StripTrailingBar(folders), text.substr(bar));
}

// A folder that only stands in for ProgramData is replaced by that, with a notice.
void SubstituteFakeRoots(session::Session& session, std::string& piece) {
    for (const std::string_view fakeRoot : session::kFakeRoots) {
        auto real = session::WithoutFakeRoot(piece, fakeRoot);
        if (!real) continue;
        const std::string_view shown = text::Left(piece, 2 + fakeRoot.size());
        session.MsgBox(session::PromptId::kLocationReplaced,
                       fmt::format("{} is not a real folder, substituting the actual folder {}",
                                   session.Shown(shown), session.Shown(*real)));
        piece = std::move(*real);
    }
}

bool IsMissing(const platform::PlatformError& error) {
    return error.number == platform::kFileNotFound || error.number == platform::kPathNotFound;
}

// What stands at a path, or that nothing does.
platform::Result<ResolvedObject> Resolve(session::Session& session, std::string_view path) {
    const auto facts = session.files().Facts(path);
    if (!facts && IsMissing(facts.error())) return ResolvedObject{};
    if (!facts) return std::unexpected(facts.error());
    auto truePath = session.files().TruePath(path);
    return ResolvedObject{truePath ? std::move(*truePath) : std::string(path),
                          facts->IsFolder() ? ObjectKind::kFolder : ObjectKind::kFile};
}

// A place that can't be looked at is asked about in every mode, and no missing one.
session::Attempted<ResolvedObject> LookFor(session::Session& session, std::string_view typed,
                                           std::string_view path) {
    path = text::StripTrailingSlash(path);
    // A variable that is none was never a place.
    if (path.find('%') != path.npos) {
        return {Resolve(session, path).value_or(ResolvedObject{})};
    }
    return ReadOrNote(session, {.path = std::string(path), .isFolder = true, .mustExist = true},
                      {.routine = "ParseSearchFolder",
                       .moduleName = "frmSearch",
                       .object = typed,
                       .path = path,
                       .searchOrDestination = path,
                       .objectType = session::ObjectType::kFolder},
                      [&] { return Resolve(session, path); });
}

// A location as people read it: its variables say nothing to who reads native paths.
std::string ShownLocation(const session::Session& session, std::string_view typed,
                          std::string_view expanded) {
    const bool isExpanded = typed.find('%') != typed.npos && expanded.find('%') == expanded.npos;
    return session.Shown(isExpanded && session.state.platformSettings.showsNative ? expanded
                                                                                  : typed);
}

// One piece of the text, and what is wrong with it, or nothing.
struct Piece {
    SearchLocation location;
    std::string cleaned;
    std::string wrong;
    bool isRecycleFolder = false;
};

Piece ParsePiece(session::Session& session, std::string_view typed) {
    Piece piece;
    std::string& path = piece.cleaned;
    path = session::RemoveEnvVarAndRestorePath(
        session, results::ResolveNetHood(session, session.platform.paths.ToDrive(typed)));
    const bool unexpanded = path.find('%') != path.npos;
    SubstituteFakeRoots(session, path);
    if (text::Length(path) < 2) {
        piece.wrong = session::Worded(session, session::Wording::kLocationTooShort);
        return piece;
    }
    const auto attempted = LookFor(session, typed, path);
    piece.isRecycleFolder = session::IsInRecycleBin(path);
    if (!attempted) return piece; // told, and asked about
    const ResolvedObject& resolved = *attempted.result;
    if (resolved.kind == ObjectKind::kFolder) {
        auto& [folder, folderShort] = piece.location;
        folder = text::StripTrailingSlash(resolved.path);
        folderShort = session::GetShortPathNameReturnCodes(session, folder).path;
    } else if (unexpanded) {
        piece.wrong = fmt::format("This appears to be an invalid environment variable(s):{}",
                                  Framed(session.Shown(typed)));
    } else {
        piece.wrong =
            fmt::format("{}{}", session::Worded(session, session::Wording::kLocationMissing),
                        Framed(ShownLocation(session, typed, path)));
    }
    return piece;
}

// Both end in "\". The shorter one may stand anywhere in the longer.
bool Overlap(std::string_view a, std::string_view b) {
    if (a.empty() || b.empty()) return false;
    return text::Length(a) <= text::Length(b) ? text::ContainsNoCase(b, a)
                                              : text::ContainsNoCase(a, b);
}

std::string DescribeOverlaps(const session::Session& session,
                             const std::vector<SearchLocation>& locations) {
    std::vector<std::string> closed;
    for (const SearchLocation& location : locations) {
        const bool isThere = !location.folderShort.empty();
        closed.push_back(isThere ? fmt::format("{}\\", location.folderShort) : std::string{});
    }
    std::string told;
    for (std::size_t i = 0; i < closed.size(); ++i) {
        for (std::size_t j = i + 1; j < closed.size(); ++j) {
            if (!Overlap(closed[i], closed[j])) continue;
            told +=
                fmt::format("These search folders are NOT mutually exclusive: {}",
                            Framed(fmt::format("{}\r\n{}", session.Shown(locations[i].folderShort),
                                               session.Shown(locations[j].folderShort))));
        }
    }
    return told;
}

std::vector<std::string_view> PiecesOf(std::string_view text) {
    auto pieces = text::Split(text, '|');
    while (pieces.size() > 1 && pieces.back().empty()) {
        pieces.pop_back();
    }
    if (pieces.size() > kSearchFolderLimit) pieces.resize(kSearchFolderLimit);
    return pieces;
}

} // namespace

Locations ParseSearchFolder(session::Session& session, std::string_view strFolderString) {
    auto& box = session.frmSearch.cmbDir.Text;
    const bool keepsBox = session.state.blnAutoMove;
    const std::string text = ReplaceTitle(session, strFolderString);
    if (!keepsBox) box = text;
    Locations locations;
    std::string wrong;
    for (const std::string_view typed : PiecesOf(text)) {
        Piece piece = ParsePiece(session, text::Trim(typed));
        wrong += piece.wrong;
        if (!locations.text.empty()) locations.text += '|';
        locations.text += piece.cleaned;
        locations.blnRecycleAllowed |= piece.isRecycleFolder;
        locations.folders.push_back(std::move(piece.location));
    }
    wrong += DescribeOverlaps(session, locations.folders);
    if (!wrong.empty()) session.MsgBox(session::PromptId::kLocationsWrong, wrong);
    if (keepsBox) {
        locations.text = strFolderString;
    } else {
        box = locations.text;
    }
    return locations;
}

ResolvedObject ResolveObjectKind(session::Session& session, std::string_view path) {
    path = text::StripTrailingSlash(path);
    if (path.empty()) return {};
    return Resolve(session, path).value_or(ResolvedObject{});
}

} // namespace tarvix::search
