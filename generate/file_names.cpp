#include "generate/file_names.h"

#include "text/paths.h"

#include <algorithm>

namespace tarvix::generate {

std::string RemoveBars(std::string_view text) {
    std::string rest(text);
    std::erase(rest, '|');
    return rest;
}

std::string RemoveWildcards(std::string_view text) {
    std::string rest(text);
    std::erase_if(rest, [](char c) { return c == '*' || c == '?'; });
    return rest;
}

std::string KeepLastDotOnly(std::string_view name) {
    const std::size_t last = std::min(name.rfind('.'), name.size());
    std::string kept(name.substr(0, last));
    std::erase(kept, '.');
    return kept.append(name.substr(last));
}

std::pair<std::string, std::string> SplitAtLastDot(std::string_view path) {
    const std::size_t name = path.size() - text::FolderOwnName(path).size();
    const std::size_t dot = path.rfind('.');
    if (dot == path.npos || dot < name) return {std::string(path), ""};
    return {std::string(path.substr(0, dot)), std::string(path.substr(dot + 1))};
}

bool IsPathListName(std::string_view path) {
    return path.ends_with(".mpl");
}

bool IsPlaylistName(std::string_view path) {
    return path.ends_with(".m3u") || path.ends_with(".m3u8");
}

} // namespace tarvix::generate
