#include "launch/custom/chosen.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace tarvix::custom {

namespace {

bool LiesIn(std::string_view path, std::string_view folder) {
    if (folder == "/") return true;
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

} // namespace

std::string_view NameOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == path.npos ? path : path.substr(slash + 1);
}

std::string_view FolderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == path.npos) return "/";
    return path.substr(0, std::max<std::size_t>(slash, 1));
}

std::string_view StemOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == name.npos || dot == 0 ? name : name.substr(0, dot);
}

std::string_view ExtensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == name.npos || dot == 0 ? std::string_view() : name.substr(dot + 1);
}

Chosen ChosenFrom(std::vector<ChosenObject> objects) {
    Chosen chosen;
    chosen.objects = std::move(objects);
    std::string_view folder = FolderOf(chosen.objects.front().path);
    for (const ChosenObject& object : chosen.objects) {
        const std::string_view own = FolderOf(object.path);
        if (own == folder) continue;
        chosen.isOneFolder = false;
        while (!LiesIn(own, folder))
            folder = FolderOf(folder);
    }
    chosen.folder = std::string(folder);
    std::unordered_set<std::string_view> types;
    for (const ChosenObject& object : chosen.objects) {
        if (types.insert(object.type).second) chosen.types.push_back(object.type);
    }
    return chosen;
}

} // namespace tarvix::custom
