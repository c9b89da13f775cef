#include "session/paths/recycle_folders.h"

#include "text/case.h"
#include "text/like.h"
#include "text/paths.h"

#include <algorithm>
#include <array>

namespace tarvix::session {

namespace {

// ".Trash" of a mount holds a folder for each user, ".Trash-1000" is that of one user.
bool IsMountTrash(std::string_view name) {
    constexpr std::string_view kName = ".Trash";
    if (name.size() < kName.size() || !text::EqualNoCase(name.substr(0, kName.size()), kName)) {
        return false;
    }
    const std::string_view rest = name.substr(kName.size());
    if (rest.empty()) return true;
    return rest.size() > 1 && rest[0] == '-' &&
           std::ranges::all_of(rest.substr(1), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsDesktopTrash(std::string_view path) {
    const std::string_view name = text::FileNameOf(path);
    if (name.size() < 5 || name.size() > 24) return false;
    if (IsMountTrash(name)) return true;
    if (!text::EqualNoCase(name, "Trash")) return false;
    const std::string_view share = text::GetParentFolderName(path);
    return text::EqualNoCase(text::FileNameOf(share), "share") &&
           text::EqualNoCase(text::FileNameOf(text::GetParentFolderName(share)), ".local");
}

using Patterns = std::array<text::LikePattern, 6>;

bool MatchesAny(const Patterns& patterns, std::string_view path) {
    return std::ranges::any_of(
        patterns, [path](const text::LikePattern& pattern) { return pattern.Matches(path); });
}

} // namespace

bool IsRecycleBin(std::string_view path) {
    if (IsDesktopTrash(path)) return true;
    const std::string_view name = text::FileNameOf(path);
    const bool isNamed =
        std::ranges::any_of(std::array<std::string_view, 3>{"RECYCLER", "RECYCLED", "$RECYCLE.BIN"},
                            [name](std::string_view bin) { return text::EqualNoCase(name, bin); });
    return isNamed && text::FileNameOf(text::GetParentFolderName(path)).empty();
}

bool IsRecycleBinPath(std::string_view path) {
    static const Patterns kBins{
        text::LikePattern("?:\\RECYCLER", true),     text::LikePattern("?:\\RECYCLED", true),
        text::LikePattern("?:\\$RECYCLE.BIN", true), text::LikePattern("\\\\*RECYCLER", true),
        text::LikePattern("\\\\*RECYCLED", true),    text::LikePattern("\\\\*$RECYCLE.BIN", true)};
    return MatchesAny(kBins, path) || IsDesktopTrash(path);
}

bool IsInRecycleBin(std::string_view path) {
    static const Patterns kBins{text::LikePattern("?:\\RECYCLER*", true),
                                text::LikePattern("?:\\RECYCLED*", true),
                                text::LikePattern("?:\\$RECYCLE.BIN*", true),
                                text::LikePattern("\\\\*RECYCLER*", true),
                                text::LikePattern("\\\\*RECYCLED*", true),
                                text::LikePattern("\\\\*$RECYCLE.BIN*", true)};
    if (MatchesAny(kBins, path)) return true;
    for (path = text::StripTrailingSlash(path); !path.empty();
         path = text::GetParentFolderName(path)) {
        if (IsDesktopTrash(path)) return true;
    }
    return false;
}

} // namespace tarvix::session
