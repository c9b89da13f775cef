#include "text/paths.h"

#include "text/characters.h"
#include "text/last_of.h"

#include <algorithm>

namespace tarvix::text {

namespace {

constexpr std::string_view kDoubleSlash = "\\\\";

bool IsUnc(std::string_view path) {
    return path.starts_with(kDoubleSlash);
}

// Byte position of the n-th "\" from the front, or npos.
std::size_t NthSlash(std::string_view path, int n) {
    std::size_t pos = path.find('\\');
    while (--n > 0 && pos != std::string_view::npos) {
        pos = path.find('\\', pos + 1);
    }
    return pos;
}

// Bytes of the drive or share at the front, without a "\" behind it; 0 when there is none.
std::size_t RootSize(std::string_view path) {
    if (path.size() >= 2 && path[1] == ':') return 2;
    return IsUnc(path) ? std::min(NthSlash(path, 4), path.size()) : 0;
}

std::string_view WithoutTrailingSlashes(std::string_view path) {
    return path.substr(0, path.find_last_not_of('\\') + 1);
}

std::string WithoutBlanksBefore(std::string_view s, char mark) {
    std::string out;
    out.reserve(s.size());
    for (const char c : s) {
        if (c == mark) out.resize(RTrim(out).size());
        out += c;
    }
    return out;
}

std::string WithoutBlanksBehind(std::string_view s, char mark) {
    std::string out;
    out.reserve(s.size());
    for (const char c : s) {
        if (c != ' ' || !out.ends_with(mark)) out += c;
    }
    return out;
}

bool IsPathMark(char c) {
    return c == '\\' || c == '|';
}

std::string WithoutDoubledSlashes(std::string_view path) {
    std::string out(Left(path, 2));
    const std::size_t start = out.size();
    for (const char c : path.substr(start)) {
        if (c != '\\' || out.size() == start || out.back() != '\\') out += c;
    }
    return out;
}

} // namespace

std::string_view FileNameOf(std::string_view path) {
    path = StripTrailingSlash(path);
    path.remove_prefix(RootSize(path));
    return FolderOwnName(path);
}

std::string_view FolderOwnName(std::string_view path) {
    return path.substr(LastOf(path, '\\') + 1);
}

std::string_view GetParentFolderName(std::string_view path) {
    const std::size_t root = RootSize(path);
    const std::string_view below = WithoutTrailingSlashes(path.substr(root));
    if (below.empty()) return {};
    const std::size_t slash = LastOf(below, '\\');
    if (slash == std::string_view::npos) return path.substr(0, root);
    const std::size_t parent = WithoutTrailingSlashes(below.substr(0, slash)).size();
    if (parent == 0 && !IsUnc(path)) return path.substr(0, root + 1);
    return path.substr(0, root + parent);
}

std::string ParentFolder(std::string_view path) {
    const std::string_view parent = GetParentFolderName(path);
    return std::string(parent.empty() ? path : parent);
}

std::string ParentFolderSlash(std::string_view path) {
    if (!path.contains('\\')) return std::string(path);
    return std::string(StripTrailingSlash(GetParentFolderName(path))) + '\\';
}

std::string_view GetExtension(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

std::string_view GetBaseName(std::string_view path) {
    const std::string_view name = FileNameOf(path);
    return name.substr(0, name.rfind('.'));
}

std::size_t CountPathLevels(std::string_view path) {
    std::size_t levels = 0;
    for (std::size_t at = path.find('\\'); at != path.npos; at = path.find('\\', at + 1))
        ++levels;
    return levels;
}

std::string_view StripTrailingSlash(std::string_view path) {
    if (path.ends_with('\\')) path.remove_suffix(1);
    return path;
}

std::string_view StripLeadingBar(std::string_view s) {
    if (s.starts_with('|')) s.remove_prefix(1);
    return s;
}

std::string_view StripTrailingBar(std::string_view s) {
    if (s.ends_with('|')) s.remove_suffix(1);
    return s;
}

bool IsCleanPath(std::string_view path, bool strict) {
    if (path.starts_with(' ') || path.ends_with(' ')) return false;
    for (std::size_t at = path.find(' '); at != path.npos; at = path.find(' ', at + 1)) {
        if (IsPathMark(path[at - 1]) || IsPathMark(path[at + 1])) return false;
    }
    return !strict || (!path.ends_with('\\') && path.find(kDoubleSlash, 1) == path.npos);
}

std::string CleanSpacesInPath(std::string_view path, bool strict) {
    if (IsCleanPath(path, strict)) return std::string(path);
    std::string out = WithoutBlanksBefore(LTrim(path), '\\');
    out = WithoutBlanksBehind(out, '\\');
    out = WithoutBlanksBefore(out, '|');
    out = WithoutBlanksBehind(out, '|');
    if (strict) {
        out = WithoutDoubledSlashes(out);
        out.resize(StripTrailingSlash(out).size());
    }
    out.resize(RTrim(out).size());
    return out;
}

std::string PathRoot(std::string_view path) {
    if (path.contains(':')) return std::string(Left(path, 2));
    const std::size_t fourth = NthSlash(path, 4);
    return std::string(path.substr(0, fourth == std::string_view::npos ? 0 : fourth));
}

std::string PathBelowRoot(std::string_view path) {
    if (path.contains(':')) return std::string(Mid(path, 3));
    const std::size_t first = path.find('\\');
    const std::size_t fourth = NthSlash(path, 4);
    if (fourth == std::string_view::npos || path[first + 1] != '\\') return {};
    return std::string(path.substr(fourth));
}

std::string RootAsFolders(std::string_view root) {
    if (root.starts_with('\\')) return std::string(root.substr(1));
    if (root.empty()) return {};
    return '\\' + std::string(Left(root, Length(root) - 1));
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string out;
    out.reserve(folder.size() + 1 + name.size());
    out = folder;
    AppendToPath(out, name);
    return out;
}

void AppendToPath(std::string& folder, std::string_view name) {
    if (folder.empty()) {
        folder = name;
        return;
    }
    name.remove_prefix(std::min(name.find_first_not_of('\\'), name.size()));
    folder.resize(WithoutTrailingSlashes(folder).size());
    folder.append(1, '\\').append(name);
}

} // namespace tarvix::text
