#include "generate/playlist_lines.h"

#include "generate/similar_comments.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::generate {

namespace {

// Characters of a comment of a possible duplicate that are not its path: the mark, " - ", a size,
// " ~ " and another size.
constexpr std::size_t kAroundPath = 55;

bool IsSlash(char c) {
    return c == '\\' || c == '/';
}

int HexOf(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The text with each "%XX" as its byte; what is no such escape stays.
std::string DecodePercent(std::string_view text) {
    std::string decoded;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isEscape = text[at] == '%' && at + 2 < text.size() && HexOf(text[at + 1]) >= 0 &&
                              HexOf(text[at + 2]) >= 0;
        if (!isEscape) {
            decoded += text[at];
            continue;
        }
        decoded += static_cast<char>(HexOf(text[at + 1]) * 16 + HexOf(text[at + 2]));
        at += 2;
    }
    return decoded;
}

// "http://...", whatever its scheme.
bool IsAddress(std::string_view line) {
    const std::size_t colon = line.find("://");
    if (colon == line.npos || colon < 2) return false;
    return std::ranges::all_of(line.substr(0, colon), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '+' || c == '-' || c == '.';
    });
}

bool IsDrivePath(std::string_view text) {
    if (text.starts_with("\\\\")) return true;
    const bool hasDrive =
        text.size() >= 2 && text[1] == ':' &&
        ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
    return hasDrive && (text.size() == 2 || IsSlash(text[2]));
}

} // namespace

PlaylistLines::PlaylistLines(const platform::NativePaths& paths, std::string_view folder,
                             bool isNative)
    : paths_(paths), folder_(folder), isNative_(isNative) {}

PlaylistLine PlaylistLines::Read(std::string_view line) const {
    if (line.starts_with(kDuplicateMark)) return Duplicate(line);
    if (line.starts_with('#')) return {};
    return Entry(line);
}

std::string PlaylistLines::FullPath(std::string_view text) const {
    if (IsDrivePath(text)) return text::Replace(text, "/", "\\");
    return paths_.IsNative(text) ? paths_.ToDrive(text) : std::string();
}

// "a/../b" goes up and down again; above the root there is nothing.
std::string PlaylistLines::Below(std::string_view relative) const {
    std::string path = folder_;
    while (!relative.empty()) {
        const auto slash = std::ranges::find_if(relative, IsSlash);
        const auto length = static_cast<std::size_t>(slash - relative.begin());
        const std::string_view name = relative.substr(0, length);
        relative.remove_prefix(std::min(length + 1, relative.size()));
        if (name.empty() || name == ".") continue;
        if (name == "..") {
            path = text::ParentFolder(path);
            continue;
        }
        text::AppendToPath(path, isNative_ ? platform::NameToDrive(name) : std::string(name));
    }
    return path;
}

PlaylistLine PlaylistLines::Duplicate(std::string_view line) const {
    const std::size_t length = text::Length(line);
    if (length <= kAroundPath) return {};
    const std::size_t first = kDuplicateMark.size() + 1;
    std::string path = FullPath(text::Mid(line, first, length - kAroundPath));
    if (path.empty()) return {};
    return {.kind = PlaylistLineKind::kDuplicate, .path = std::move(path)};
}

PlaylistLine PlaylistLines::Entry(std::string_view line) const {
    std::string full = FullPath(line);
    if (!full.empty()) return {.kind = PlaylistLineKind::kEntry, .path = std::move(full)};
    if (IsAddress(line)) return {.kind = PlaylistLineKind::kElsewhere, .path = {}};
    const std::string plain = DecodePercent(line);
    return {.kind = PlaylistLineKind::kEntry,
            .path = Below(line),
            .decoded = plain == line ? std::string() : Below(plain)};
}

} // namespace tarvix::generate
