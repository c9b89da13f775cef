#include "cli/typed_paths.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <cctype>

namespace tarvix::cli {

namespace {

bool IsDriveForm(std::string_view text) {
    if (text.starts_with("\\\\")) return true;
    if (text.size() < 2 || text[1] != ':') return false;
    const bool isLetter = std::isalpha(static_cast<unsigned char>(text[0])) != 0;
    return isLetter && (text.size() == 2 || text[2] == '\\');
}

// "a", "./a", "../a" and "." behind a folder; the platform takes whole paths without dots.
std::string Absolute(std::string_view folder, std::string_view relative) {
    std::string path(folder);
    for (const std::string_view name : text::Split(relative, '/')) {
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            path.resize(path.find_last_of('/') == path.npos ? 0 : path.find_last_of('/'));
        } else {
            path.append(path.ends_with('/') ? "" : "/").append(name);
        }
    }
    return path.empty() ? "/" : path;
}

} // namespace

std::string TypedPaths::ToDrive(std::string_view typed) const {
    const std::string expanded = platform::ExpandVariables(machine_.environment, typed);
    if (IsDriveForm(expanded)) return expanded;
    if (expanded.starts_with('/')) return machine_.paths.ToDrive(Absolute("", expanded));
    if (machine_.paths.IsNative(expanded)) return machine_.paths.ToDrive(expanded);
    return machine_.paths.ToDrive(Absolute(currentFolder_, expanded));
}

bool TypedPaths::IsFolder(std::string_view drivePath) const {
    const auto facts = machine_.files.Facts(drivePath);
    return facts && facts->IsFolder();
}

std::expected<std::string, std::string> TypedPaths::OneLocation(std::string_view typed) const {
    const std::string quoted = fmt::format("\"{}\"", typed);
    if (text::Trim(typed).empty()) {
        return std::unexpected("--in holds an empty location: leave it out.");
    }
    std::string path = ToDrive(typed);
    const auto facts = machine_.files.Facts(path);
    if (!facts) {
        return std::unexpected(
            fmt::format("There is no folder {} to search: give --in folders that exist.", quoted));
    }
    if (!facts->IsFolder()) {
        return std::unexpected(
            fmt::format("{} is a file: give --in the folders to search.", quoted));
    }
    return path;
}

std::expected<std::vector<std::string>, std::string>
TypedPaths::Locations(const std::vector<std::string>& typed) const {
    std::vector<std::string> locations;
    for (const std::string& text : typed) {
        const bool isOnePath = text.find('|') == text.npos || IsFolder(ToDrive(text));
        const auto pieces =
            isOnePath ? std::vector<std::string_view>{text} : text::Split(text, '|');
        for (const std::string_view piece : pieces) {
            auto location = OneLocation(piece);
            if (!location) return std::unexpected(location.error());
            locations.push_back(std::move(*location));
        }
    }
    return locations;
}

} // namespace tarvix::cli
