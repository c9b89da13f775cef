#include "results/link_target.h"

#include "platform/dir.h"
#include "platform/file_system.h"
#include "results/exe_facts_bytes.h"
#include "session/paths/env_variables.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/encoding.h"
#include "text/paths.h"

namespace tarvix::results {

namespace {

constexpr std::size_t kMostLinkBytes = 1 << 20;
constexpr std::size_t kHeaderSize = 0x4C;
constexpr std::string_view kClassId{"\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16};
constexpr std::string_view kThisPc{"\x1F\x50\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8", 12};

enum LinkFlag : std::uint32_t {
    kHasIdList = 0x1,
    kHasLinkInfo = 0x2,
    kIsUnicode = 0x80,
};

// Reads that never leave the bytes: what lies outside is 0 or empty.
struct Bytes {
    std::string_view all;

    std::uint16_t Word(std::size_t at) const {
        return at + 2 <= all.size() ? WordAt(all, at) : std::uint16_t{0};
    }
    std::uint32_t DoubleWord(std::size_t at) const {
        return at + 4 <= all.size() ? DoubleWordAt(all, at) : 0U;
    }
    Bytes Part(std::size_t at, std::size_t count) const {
        return {at <= all.size() ? all.substr(at, count) : std::string_view()};
    }
    // Up to a NUL, in the encoding of one byte a character.
    std::string Text(std::size_t at) const {
        const std::string_view rest = Part(at, all.size()).all;
        return text::FromFileBytes(rest.substr(0, rest.find('\0')));
    }
    // Up to a NUL, in UTF-16.
    std::string WideText(std::size_t at) const {
        std::string text;
        for (; Word(at) != 0; at += 2) {
            char32_t c = Word(at);
            const char32_t low = Word(at + 2);
            if ((c & 0xFC00) == 0xD800 && (low & 0xFC00) == 0xDC00) {
                c = 0x10000 + ((c & 0x3FF) << 10) + (low & 0x3FF);
                at += 2;
            }
            text::AppendUtf8(text, c);
        }
        return text;
    }
};

// The name that a file entry of an ID list bears.
std::string EntryName(const Bytes& item) {
    constexpr std::size_t kPrimaryName = 14;
    constexpr std::uint32_t kNameBlock = 0xBEEF0004;
    const std::size_t block = item.Word(item.all.size() - 2);
    if (block >= kPrimaryName && item.DoubleWord(block + 4) == kNameBlock) {
        std::string name = item.WideText(block + item.Word(block + 16));
        if (!name.empty()) return name;
    }
    const bool isWide = (item.all[2] & 4) != 0;
    return isWide ? item.WideText(kPrimaryName) : item.Text(kPrimaryName);
}

// The path of a chain of a root, a drive and file entries; empty for any other chain.
std::string PathOfIdList(Bytes list) {
    std::string path;
    bool isFirst = true;
    while (list.all.size() >= 2 && list.Word(0) != 0) {
        const std::size_t size = list.Word(0);
        if (size < 4 || size > list.all.size()) return {};
        const Bytes item = list.Part(0, size);
        const int kind = static_cast<unsigned char>(item.all[2]);
        if (isFirst) {
            if (!item.Part(2, kThisPc.size()).all.starts_with(kThisPc)) return {};
        } else if ((kind & 0x71) == 0x21) {
            path = text::StripTrailingSlash(item.Text(3));
        } else if ((kind & 0x70) == 0x30 && !path.empty()) {
            path.append("\\").append(EntryName(item));
        } else {
            return {};
        }
        isFirst = false;
        list = list.Part(size, list.all.size());
    }
    return path.size() == 2 ? path + "\\" : path;
}

std::string PathOfLinkInfo(const Bytes& info) {
    constexpr std::uint32_t kLocal = 1;
    constexpr std::uint32_t kNetwork = 2;
    constexpr std::size_t kWithUnicode = 0x24;
    const bool hasUnicode = info.DoubleWord(4) >= kWithUnicode;
    const auto text = [&](std::size_t plain, std::size_t wide) {
        const std::size_t wideAt = hasUnicode ? info.DoubleWord(wide) : 0;
        if (wideAt != 0) return info.WideText(wideAt);
        const std::size_t at = info.DoubleWord(plain);
        return at != 0 ? info.Text(at) : std::string();
    };
    const std::uint32_t flags = info.DoubleWord(8);
    const std::string suffix = text(0x18, 0x20);
    if (flags & kLocal) return text(0x10, 0x1C) + suffix;
    if ((flags & kNetwork) == 0) return {};
    const Bytes network = info.Part(info.DoubleWord(0x14), info.all.size());
    const std::size_t name = network.DoubleWord(8);
    const std::string share =
        name > 0x14 ? network.WideText(network.DoubleWord(0x14)) : network.Text(name);
    return suffix.empty() ? share : text::JoinPath(share, suffix);
}

// Behind the five texts.
std::size_t SkipTexts(const Bytes& bytes, std::size_t at, std::uint32_t flags) {
    for (const std::uint32_t flag : {0x4U, 0x8U, 0x10U, 0x20U, 0x40U}) {
        if ((flags & flag) == 0) continue;
        at += 2 + std::size_t{bytes.Word(at)} * (flags & kIsUnicode ? 2 : 1);
    }
    return at;
}

// The target with variables.
std::string PathOfEnvironment(const Bytes& bytes, std::size_t at) {
    constexpr std::uint32_t kEnvironment = 0xA0000001;
    constexpr std::size_t kWidePart = 8 + 260;
    while (at < bytes.all.size()) {
        const std::size_t size = bytes.DoubleWord(at);
        if (size < 8) break;
        const Bytes block = bytes.Part(at, size);
        if (block.DoubleWord(4) == kEnvironment) {
            std::string wide = block.WideText(kWidePart);
            return wide.empty() ? block.Text(8) : wide;
        }
        at += size;
    }
    return {};
}

} // namespace

std::string TargetOfShellLink(std::string_view all) {
    const Bytes bytes{all};
    const bool isLink = bytes.DoubleWord(0) == kHeaderSize && bytes.Part(4, 16).all == kClassId;
    if (!isLink) return {};
    const std::uint32_t flags = bytes.DoubleWord(0x14);
    std::size_t at = kHeaderSize;
    std::string path;
    if (flags & kHasIdList) {
        const std::size_t size = bytes.Word(at);
        path = PathOfIdList(bytes.Part(at + 2, size));
        at += 2 + size;
    }
    if (flags & kHasLinkInfo) {
        const std::size_t size = bytes.DoubleWord(at);
        if (path.empty()) path = PathOfLinkInfo(bytes.Part(at, size));
        at += size;
    }
    return path.empty() ? PathOfEnvironment(bytes, SkipTexts(bytes, at, flags)) : path;
}

std::string TargetOfInternetShortcut(std::string_view text) {
    constexpr std::string_view kKey = "URL=";
    text::LineReader lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.Next();
        if (text::StartsWithNoCase(line, kKey)) return std::string(line.substr(kKey.size()));
    }
    return {};
}

std::string NormalizeTargetPath(session::Session& session, std::string_view path) {
    std::string_view bare = path;
    if (bare.ends_with('"')) bare.remove_suffix(1);
    if (bare.starts_with('"')) bare.remove_prefix(1);
    bare = text::StripTrailingSlash(bare);
    const std::string full = bare.starts_with('%')
                                 ? session::RemoveEnvVarAndRestorePath(session, bare)
                                 : std::string(bare);
    const bool hasLevels = text::PathBelowRoot(full).size() > 1;
    if (!hasLevels) return std::string(path);
    const auto truePath = session.files().TruePath(full);
    const bool fits = truePath && text::Length(*truePath) <= session::kLongPath;
    return fits ? *truePath : std::string(path);
}

std::string LinkTargetOf(session::Session& session, std::string_view path) {
    const std::string_view extension = text::GetExtension(path);
    const bool isLink = text::EqualNoCase(extension, "lnk");
    if (!isLink && !text::EqualNoCase(extension, "url")) return {};
    const auto bytes = session.files().ReadBytes(path, 0, kMostLinkBytes);
    if (!bytes) return {};
    const std::string target =
        isLink ? TargetOfShellLink(*bytes) : TargetOfInternetShortcut(text::FromFileBytes(*bytes));
    return target.empty() ? target : NormalizeTargetPath(session, target);
}

} // namespace tarvix::results
