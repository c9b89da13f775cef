#include "results/net_hood.h"

#include "platform/file_system.h"
#include "results/link_target.h"
#include "session/session.h"
#include "shortcuts/formats/values.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/like.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tarvix::results {

namespace {

constexpr std::string_view kAddress = "smb://";
// A ":" in a name is carried as U+F03A.
constexpr std::string_view kDesktopFolder = "\\gvfs\\smb-share\xEF\x80\xBA";

std::string ShareOfAddress(std::string_view address) {
    std::string share = fmt::format("\\\\{}", address.substr(kAddress.size()));
    std::ranges::replace(share, '/', '\\');
    return share;
}

// The value of "server=" or "share=" among the parts of such a folder's name.
std::string_view PartOf(std::string_view name, std::string_view key) {
    for (const std::string_view part : text::Split(name, ',')) {
        if (part.starts_with(key)) return part.substr(key.size());
    }
    return {};
}

std::string ShareOfDesktopFolder(std::string_view path, std::size_t at) {
    const std::string_view behind = path.substr(at + kDesktopFolder.size());
    const std::size_t end = std::min(behind.find('\\'), behind.size());
    const std::string_view name = behind.substr(0, end);
    return fmt::format("\\\\{}\\{}{}", PartOf(name, "server="), PartOf(name, "share="),
                       behind.substr(end));
}

// What a folder of shortcuts to the network leads to; its list of computers leads nowhere.
std::optional<std::string> TargetOfShortcutFolder(session::Session& session,
                                                  std::string_view path) {
    const bool isOne =
        text::LikeNoCase(path, "?:*\\NetHood\\*") && !text::LikeNoCase(path, "?:*\\NetHood\\*\\*");
    if (!isOne || text::EqualNoCase(text::FolderOwnName(path), "Computers Near Me")) {
        return std::nullopt;
    }
    const auto bytes = results::ReadShortcut(session, text::JoinPath(path, "target.lnk"));
    if (!bytes) return std::nullopt;
    std::string target = shortcuts::Read(shortcuts::Kind::kLnk, *bytes)[shortcuts::kTarget];
    return target.empty() ? std::nullopt : std::optional(std::move(target));
}

} // namespace

std::string ResolveNetHood(session::Session& session, std::string_view path) {
    if (const auto target = TargetOfShortcutFolder(session, text::StripTrailingSlash(path))) {
        return *target;
    }
    std::string share;
    const std::size_t desktopFolder = path.find(kDesktopFolder);
    if (text::EqualNoCase(path.substr(0, kAddress.size()), kAddress)) {
        share = ShareOfAddress(path);
    } else if (desktopFolder != path.npos) {
        share = ShareOfDesktopFolder(path, desktopFolder);
    }
    const bool isThere = !share.empty() && session.files().Facts(share);
    return isThere ? share : std::string(path);
}

} // namespace tarvix::results
