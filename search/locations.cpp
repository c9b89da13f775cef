#include "search/locations.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "search/default_folders.h"
#include "search/net_hood.h"
#include "session/paths/env_variables.h"
#include "session/paths/fake_roots.h"
#include "session/paths/recycle_folders.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/like.h"
#include "text/paths.h"

#include <array>
#include <vector>

namespace tarvix::search {

namespace {

constexpr std::string_view kEol = "\r\n";
const std::string kHyphens(74, '-');

std::string Framed(std::string_view piece) {
    std::string text;
    return text.append(kEol).append(kHyphens).append(kEol).append(piece).append(kEol).append(
        kHyphens + std::string(kEol) + std::string(kEol));
}

// A leading blank marks a title: it is replaced by the folders it stands for.
std::string ReplaceTitle(const session::Session& session, std::string_view text) {
    if (!text.starts_with(' ')) return std::string(text);
    const std::size_t bar = std::min(text.find('|'), text.size());
    const std::size_t place = FindTitle(session, text.substr(0, bar));
    if (place == session::kDefaultFolderLimit) return std::string(text);
    const std::string_view folders = session.state.options.strDefSearchFolder[place];
    return std::string(text::StripTrailingBar(folders)).append(text.substr(bar));
}

// A folder that only stands in for ProgramData is replaced by that, with a notice.
void SubstituteFakeRoots(session::Session& session, std::string& piece) {
    for (const std::string_view fakeRoot : session::kFakeRoots) {
        auto real = session::WithoutFakeRoot(piece, fakeRoot);
        if (!real) continue;
        const std::string shown(text::Left(piece, 2 + fakeRoot.size()));
        session.MsgBox(session::PromptId::kLocationReplaced,
                       shown + " is not a real folder, substituting the actual folder " + *real);
        piece = std::move(*real);
    }
}

// Takes one piece into the table; gives what is wrong with it, or nothing.
std::string TakeLocation(session::Session& session, std::string_view typed,
                         session::SearchLocation& location, std::string& cleaned) {
    std::string piece = session::RemoveEnvVarAndRestorePath(
        session, ResolveNetHood(session, session.platform.paths.ToDrive(typed)));
    const bool unexpanded = piece.find('%') != piece.npos;
    SubstituteFakeRoots(session, piece);
    cleaned = piece;
    if (text::Length(piece) < 2) {
        return "Each search folder must be at least 2 characters in length. (example C: or "
               "C:Windows)";
    }
    const ResolvedObject resolved = ResolveObjectKind(session, piece);
    if (session::IsInRecycleBin(piece)) session.state.blnRecycleAllowed = true;
    if (resolved.kind == ObjectKind::kFolder) {
        location.folder = text::StripTrailingSlash(resolved.path);
        location.folderShort = session::GetShortPathNameReturnCodes(session, location.folder).path;
        return {};
    }
    if (unexpanded) {
        return "This appears to be an invalid environment variable(s):" + Framed(typed);
    }
    return "This search folder does not exist, it is a file, or it contains "
           "multiple environment variables AND is over 259 characters in length:" +
           Framed(typed);
}

bool Contains(const std::string& shorter, const std::string& longer) {
    return text::ContainsNoCase(longer + "\\", shorter + "\\");
}

std::string DescribeOverlaps(const std::vector<session::SearchLocation>& locations) {
    std::string told;
    for (std::size_t i = 1; i < locations.size(); ++i) {
        for (std::size_t j = i + 1; j < locations.size(); ++j) {
            const std::string& a = locations[i].folderShort;
            const std::string& b = locations[j].folderShort;
            if (a.empty() || b.empty()) continue;
            const bool overlap =
                text::Length(a) <= text::Length(b) ? Contains(a, b) : Contains(b, a);
            if (!overlap) continue;
            told += "These search folders are NOT mutually exclusive: " +
                    Framed(a + std::string(kEol) + b);
        }
    }
    return told;
}

} // namespace

void ParseSearchFolder(session::Session& session, std::string_view strFolderString) {
    auto& state = session.state;
    const std::string text = ReplaceTitle(session, strFolderString);
    // A batch goes on with what was typed.
    if (!state.blnAutoMove) session.frmSearch.cmbDir.Text = text;
    auto pieces = text::Split(text, '|');
    while (pieces.size() > 1 && pieces.back().empty()) {
        pieces.pop_back();
    }
    state.searchFolders.assign(1, {});
    std::string wrong;
    std::string list;
    for (const std::string_view piece : pieces) {
        if (state.searchFolders.size() > session::kSearchFolderLimit) break;
        session::SearchLocation location;
        std::string cleaned;
        wrong += TakeLocation(session, text::Trim(piece), location, cleaned);
        list.append(list.empty() ? "" : "|").append(cleaned);
        state.searchFolders.push_back(std::move(location));
    }
    state.intSearchFolderCount = static_cast<int>(state.searchFolders.size()) - 1;
    wrong += DescribeOverlaps(state.searchFolders);
    if (!wrong.empty()) session.MsgBox(session::PromptId::kLocationsWrong, wrong);
    if (!state.blnAutoMove) session.frmSearch.cmbDir.Text = list;
}

ResolvedObject ResolveObjectKind(session::Session& session, std::string_view path) {
    path = text::StripTrailingSlash(path);
    if (path.empty()) return {};
    const auto facts = session.files().Facts(path);
    if (!facts) return {};
    auto truePath = session.files().TruePath(path);
    return {truePath ? std::move(*truePath) : std::string(path),
            facts->IsFolder() ? ObjectKind::kFolder : ObjectKind::kFile};
}

} // namespace tarvix::search
