#include "platform/drive_path.h"

#include "platform/names.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::platform {

namespace {
bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// "C:" or "\\server\share" at the front of `path`; empty when there is neither.
std::string_view RootOf(std::string_view path) {
    if (path.size() >= 2 && IsLetter(path[0]) && path[1] == ':') {
        return path.size() == 2 || path[2] == '\\' ? path.substr(0, 2) : std::string_view();
    }
    if (!path.starts_with("\\\\")) return {};
    const auto afterServer = path.find('\\', 2);
    if (afterServer == path.npos || afterServer == 2) return {};
    const auto afterShare = std::min(path.find('\\', afterServer + 1), path.size());
    return afterShare == afterServer + 1 ? std::string_view() : path.substr(0, afterShare);
}

std::unexpected<PlatformError> BadName(std::string_view path) {
    return Failure(kBadFileName, fmt::format("{} can't be a path here.", path));
}
} // namespace

Result<DrivePath> ParseDrivePath(std::string_view path) {
    DrivePath parsed{RootOf(path), {}};
    if (parsed.root.empty()) return BadName(path);
    std::size_t begin = parsed.root.size();
    while (begin < path.size()) {
        const std::size_t end = std::min(path.find('\\', begin), path.size());
        const std::string_view name = path.substr(begin, end - begin);
        begin = end + 1;
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            if (!parsed.names.empty()) parsed.names.pop_back();
            continue;
        }
        if (!CanBeName(name)) return BadName(path);
        parsed.names.push_back(name);
    }
    return parsed;
}

} // namespace tarvix::platform
