#include "session/paths/short_path.h"

#include "platform/file_system.h"
#include "platform/short_names.h"
#include "session/attempt.h"
#include "session/paths/missing_folders.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace tarvix::session {

namespace {

constexpr int kRounds = 4;

// The "\" that ends the folder portion: the last one before column 248. 0 when there is none.
std::size_t FolderPortionEnd(std::string_view path) {
    const std::size_t position = text::InStrRev(text::Left(path, kFolderPortion), "\\");
    return position == 0 ? 0 : text::Left(path, position - 1).size();
}

int StatusOf(std::string_view path, std::size_t limit) {
    const std::size_t length = text::Length(path);
    if (length <= limit) return 3;
    return length <= kLongPath ? 2 : 0;
}

// Makes sure that the folder is there; one that is missing is made. False to leave.
bool ProveFolder(Session& session, std::string_view folder, std::vector<std::string>& made) {
    const ErrorContext context{.routine = "GetShortPathNameReturnCodes",
                               .moduleName = "Module1",
                               .object = folder,
                               .path = folder,
                               .searchOrDestination = folder,
                               .objectType = ObjectType::kFolder};
    const auto makesIt = [&](const platform::PlatformError& error) -> std::optional<int> {
        if (error.number != platform::kPathNotFound) return {};
        std::ranges::move(CreateMissing247Folder(session, folder, true).made,
                          std::back_inserter(made));
        return kRecoveryNext;
    };
    const auto facts = Attempt(
        session, context, [&] { return platform::GetFolder(session.files(), folder); }, makesIt);
    return facts || facts.recovery == kRecoveryNext;
}

// One round: the folder portion in its short form. False when there is no way to shorten.
bool ShortenFolderPortion(Session& session, std::string& path, std::vector<std::string>& made) {
    const std::size_t end = FolderPortionEnd(path);
    if (end == 0) return false;
    const std::string_view folder = std::string_view(path).substr(0, end);
    if (!ProveFolder(session, folder, made)) return false;
    const auto shortForm = session.files().ShortPath(folder);
    if (!shortForm || shortForm->empty()) return false;
    path = std::string(text::StripTrailingSlash(*shortForm)) + path.substr(end);
    return true;
}

} // namespace

bool ExceedsLimit(const Session& session, std::string_view path, std::size_t limit) {
    // Bytes are never fewer than characters, so a short byte count settles most paths.
    return path.size() > limit && session.state.platformSettings.longestPath != kAnyLength &&
           text::Length(path) > limit;
}

ShortPathResult GetShortPathNameReturnCodes(Session& session, std::string_view path, bool whole,
                                            std::size_t limit) {
    if (session.state.platformSettings.longestPath == kAnyLength) return {std::string(path), 3};
    const std::size_t length = text::Length(path);
    if (length >= kAbsoluteLimit) return {std::string(path), 0};
    if (limit < 1 || limit > kFolderPortion) limit = kFolderPortion;
    std::string current(path);
    std::vector<std::string> made;
    for (int round = 0; round < kRounds && text::Length(current) > limit; ++round) {
        if (!ShortenFolderPortion(session, current, made)) {
            return {std::string(path), 0, std::move(made)};
        }
    }
    if (whole) {
        if (text::Length(current) > kLongPath) return {current, 1, std::move(made)};
        if (auto shortForm = session.files().ShortPath(current); shortForm && !shortForm->empty()) {
            current = *shortForm;
        }
    }
    return {current, StatusOf(current, limit), std::move(made)};
}

std::string MixPath(std::string_view longPath, std::string_view shortPath, std::size_t limit) {
    if (limit == 0 || limit > kLongPath) limit = kLongPath;
    std::size_t longAt = longPath.find('\\');
    std::size_t shortAt = shortPath.find('\\');
    while (longAt != longPath.npos && shortAt != shortPath.npos) {
        std::string mixed(shortPath.substr(0, shortAt));
        mixed += longPath.substr(longAt);
        if (text::Length(mixed) <= limit) return mixed;
        longAt = longPath.find('\\', longAt + 1);
        shortAt = shortPath.find('\\', shortAt + 1);
    }
    return std::string(shortPath);
}

std::string ShortFormOf(std::string_view path) {
    std::string result;
    bool first = true;
    const bool unc = path.starts_with("\\\\");
    std::size_t level = 0;
    for (const std::string_view piece : text::Split(path, '\\')) {
        if (!first) result += '\\';
        first = false;
        // A drive, and the server and share of a network path, have no short form.
        const bool isRoot = unc ? level < 4 : level == 0;
        ++level;
        result += isRoot || piece.empty() ? std::string(piece) : platform::ShortNameOf(piece);
    }
    return result;
}

} // namespace tarvix::session
