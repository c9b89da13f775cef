#include "platform/dir.h"

#include "text/paths.h"

namespace tarvix::platform {

namespace {
bool Takes(std::uint32_t mask, bool isFolder) {
    return !isFolder || (mask & kFolder) != 0;
}

bool TakesAll(std::string_view pattern) {
    return pattern.empty() || pattern == "*" || pattern == "*.*";
}
} // namespace

std::string Dir::First(std::string_view spec, std::uint32_t mask) {
    listing_.Clear();
    index_ = 0;
    mask_ = mask;
    const std::string_view pattern = text::FolderOwnName(spec);
    if (!pattern.empty() && pattern.find_first_of("*?") == pattern.npos) {
        return DirName(files_, spec, mask);
    }
    pattern_.reset();
    if (!TakesAll(pattern)) pattern_.emplace(text::EscapeLikeChars(pattern), true);
    spec.remove_suffix(pattern.size());
    auto folder = files_.Open(spec);
    if (!folder || !(*folder)->List(listing_)) {
        listing_.Clear();
        return {};
    }
    return NextMatch();
}

std::string Dir::Next() {
    return NextMatch();
}

std::string Dir::NextMatch() {
    while (index_ < listing_.Size()) {
        const FolderEntry entry = listing_[index_++];
        if (!Takes(mask_, entry.isFolder)) continue;
        if (!pattern_ || pattern_->Matches(entry.name)) return std::string(entry.name);
    }
    return {};
}

namespace {
// The name of an object that is there, as the disk spells it; empty when it has gone since.
std::string SpelledName(FileSystem& files, std::string_view path) {
    const auto truePath = files.TruePath(path);
    if (!truePath) return {};
    const std::string_view name = text::FileNameOf(*truePath);
    return std::string(name.empty() ? text::StripTrailingSlash(*truePath) : name);
}
} // namespace

std::string DirName(FileSystem& files, std::string_view path, std::uint32_t mask) {
    const auto facts = files.Facts(path);
    if (!facts || !Takes(mask, facts->IsFolder())) return {};
    return SpelledName(files, path);
}

Standing WhatStands(FileSystem& files, std::string_view path) {
    if (auto place = files.KnownFree(path)) return {.place = std::move(*place)};
    const auto facts = files.Facts(path);
    std::string name = facts ? SpelledName(files, path) : std::string();
    if (name.empty()) return {.place = {std::string(path), nullptr}};
    return {.name = std::move(name), .isFolder = facts->IsFolder()};
}

} // namespace tarvix::platform
