#include "shortcuts/formats/link_parts.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace tarvix::shortcuts::link {

namespace {

constexpr std::size_t kMostWord = 0xFFFF;
constexpr std::string_view kRootItem{
    "\x14\0\x1F\x50\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8\x08\0\x2B\x30\x30\x9D", 20};

std::string CodePage(std::string_view text, char stand) {
    bool isWhole = false;
    return ToCodePage(text, stand, isWhole);
}

// "C:" in the item of a drive.
std::string DriveItem(std::string_view drive) {
    constexpr std::size_t kSize = 0x19;
    std::string item;
    AppendWord(item, kSize);
    item.append("\x2F").append(drive).append("\\");
    item.resize(kSize);
    return item;
}

// The block that holds the name in UTF-16, in the version that every reader knows.
std::string NameBlock(std::string_view wideName, std::size_t at) {
    constexpr std::uint16_t kVersion = 3;
    constexpr std::uint32_t kNameBlock = 0xBEEF0004;
    constexpr std::uint16_t kNameAt = 0x14;
    constexpr std::size_t kTimes = 8;
    std::string block;
    const std::size_t size = kNameAt + wideName.size() + 2 + 2;
    AppendWord(block, static_cast<std::uint16_t>(size));
    AppendWord(block, kVersion);
    AppendDoubleWord(block, kNameBlock);
    block.append(kTimes, '\0');
    AppendWord(block, kNameAt);
    AppendWord(block, 0);
    block.append(wideName).append(2, '\0');
    AppendWord(block, static_cast<std::uint16_t>(at));
    return block;
}

std::string FileItem(std::string_view name, bool isFolder) {
    std::string item(2, '\0');
    item.append(isFolder ? "\x31" : "\x32").append(1, '\0');
    AppendDoubleWord(item, 0); // size
    AppendDoubleWord(item, 0); // date and time
    AppendWord(item, isFolder ? kFolderBit : kArchiveBit);
    item.append(CodePage(name, '_')).append(1, '\0');
    if (item.size() % 2 != 0) item += '\0';
    item += NameBlock(ToUtf16(name), item.size());
    PutWord(item, 0, static_cast<std::uint16_t>(std::min(item.size(), kMostWord)));
    return item;
}

// Empty when it would be too long.
std::string IdListOf(std::string_view path, bool isFolder) {
    std::string items(kRootItem);
    items += DriveItem(path.substr(0, 2));
    std::string_view rest = path.substr(std::min<std::size_t>(3, path.size()));
    while (!rest.empty()) {
        const std::size_t slash = rest.find('\\');
        const bool isLast = slash == rest.npos;
        const std::string item = FileItem(rest.substr(0, slash), !isLast || isFolder);
        if (items.size() + item.size() + 2 > kMostWord) return {};
        items += item;
        rest = isLast ? std::string_view() : rest.substr(slash + 1);
    }
    items.append(2, '\0');
    std::string list;
    AppendWord(list, static_cast<std::uint16_t>(items.size()));
    return list + items;
}

constexpr std::uint32_t kInfoHead = 0x24;

// The head, then its parts one behind the other; each place is written where the head has it.
class InfoBuilder {
  public:
    explicit InfoBuilder(std::uint32_t flags) {
        AppendDoubleWord(bytes_, 0);
        AppendDoubleWord(bytes_, kInfoHead);
        AppendDoubleWord(bytes_, flags);
        bytes_.resize(kInfoHead);
    }
    void Add(std::size_t placeAt, std::string_view part) {
        PutDoubleWord(bytes_, placeAt, static_cast<std::uint32_t>(bytes_.size()));
        bytes_.append(part);
    }
    void MakeEven() {
        if (bytes_.size() % 2 != 0) bytes_ += '\0';
    }
    std::string Take() {
        PutDoubleWord(bytes_, 0, static_cast<std::uint32_t>(bytes_.size()));
        return std::move(bytes_);
    }

  private:
    std::string bytes_;
};

enum InfoAt : std::size_t {
    kAtVolume = 0xC,
    kAtBase = 0x10,
    kAtNetwork = 0x14,
    kAtSuffix = 0x18,
    kAtWideBase = 0x1C,
    kAtWideSuffix = 0x20,
};

std::string Plain(std::string_view text) {
    return CodePage(text, '?') + '\0';
}

std::string Wide(std::string_view text) {
    return ToUtf16(text) + std::string(2, '\0');
}

// An unknown volume on a fixed disk.
std::string VolumeId() {
    constexpr std::uint32_t kSize = 0x11;
    constexpr std::uint32_t kFixed = 3;
    constexpr std::uint32_t kLabelAt = 0x10;
    std::string volume;
    AppendDoubleWord(volume, kSize);
    AppendDoubleWord(volume, kFixed);
    AppendDoubleWord(volume, 0);
    AppendDoubleWord(volume, kLabelAt);
    return volume + '\0';
}

std::string LocalInfo(std::string_view path) {
    constexpr std::uint32_t kLocal = 1;
    InfoBuilder info(kLocal);
    info.Add(kAtVolume, VolumeId());
    info.Add(kAtBase, Plain(path));
    info.Add(kAtSuffix, Plain(""));
    info.MakeEven();
    info.Add(kAtWideBase, Wide(path));
    info.Add(kAtWideSuffix, Wide(""));
    return info.Take();
}

// The share in its own record: a head that has room for the places of its two Unicode names.
std::string ShareRecord(std::string_view share) {
    constexpr std::uint32_t kValidNetType = 2;
    constexpr std::uint32_t kHead = 0x1C;
    constexpr std::uint32_t kSmb = 0x20000;
    std::string name = Plain(share);
    if (name.size() % 2 != 0) name += '\0';
    const std::string wide = Wide(share);
    std::string record;
    AppendDoubleWord(record, static_cast<std::uint32_t>(kHead + name.size() + wide.size()));
    AppendDoubleWord(record, kValidNetType);
    AppendDoubleWord(record, kHead);
    AppendDoubleWord(record, 0);
    AppendDoubleWord(record, kSmb);
    AppendDoubleWord(record, static_cast<std::uint32_t>(kHead + name.size()));
    AppendDoubleWord(record, 0);
    return record + name + wide;
}

std::string ShareInfo(std::string_view path) {
    constexpr std::uint32_t kNetwork = 2;
    const std::string root = text::PathRoot(path);
    const std::string_view below = path.substr(std::min(root.size() + 1, path.size()));
    InfoBuilder info(kNetwork);
    info.Add(kAtNetwork, ShareRecord(root.empty() ? std::string(path) : root));
    info.Add(kAtSuffix, Plain(root.empty() ? "" : below));
    info.MakeEven();
    info.Add(kAtWideSuffix, Wide(root.empty() ? "" : below));
    return info.Take();
}

std::optional<TargetParts> VariableTarget(std::string_view path) {
    constexpr std::size_t kPlainSize = 260;
    constexpr std::size_t kWideSize = 520;
    std::string plain = CodePage(path, '?');
    std::string wide = ToUtf16(path);
    if (plain.size() >= kPlainSize || wide.size() >= kWideSize) return std::nullopt;
    plain.resize(kPlainSize);
    wide.resize(kWideSize);
    TargetParts parts;
    AppendDoubleWord(parts.environment, 8 + kPlainSize + kWideSize);
    AppendDoubleWord(parts.environment, kEnvironment);
    parts.environment.append(plain).append(wide);
    return parts;
}

bool HasDrive(std::string_view path) {
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return path.size() >= 2 && isLetter(path[0]) && path[1] == ':' &&
           (path.size() == 2 || path[2] == '\\');
}

bool IsShare(std::string_view path) {
    if (!path.starts_with("\\\\")) return false;
    const std::size_t slash = path.find('\\', 2);
    return slash != path.npos && slash > 2 && slash + 1 < path.size() && path[slash + 1] != '\\';
}

} // namespace

std::optional<TargetParts> MakeTarget(std::string_view path, bool isFolder) {
    constexpr std::size_t kLongest = 0x7FFF;
    if (path.find('\0') != path.npos || text::Length(path) > kLongest) return std::nullopt;
    if (path.starts_with('%') && path.find('%', 1) != path.npos) return VariableTarget(path);
    const std::string_view bare = text::StripTrailingSlash(path);
    if (HasDrive(path)) {
        TargetParts parts{.idList = IdListOf(bare, isFolder),
                          .linkInfo = LocalInfo(bare.size() == 2 ? fmt::format("{}\\", bare)
                                                                 : std::string(bare))};
        return parts.idList.empty() ? std::nullopt : std::optional(std::move(parts));
    }
    if (IsShare(path)) return TargetParts{.linkInfo = ShareInfo(bare)};
    return std::nullopt;
}

std::string WithoutTargetProperties(std::string_view block) {
    // Bytes of the four format ids whose values name or describe the target.
    constexpr std::array<std::string_view, 4> kOfTarget{
        std::string_view{"\xFC\xB3\xB4\xB9\x51\x2B\x42\x4A\xB5\xD8\x32\x41\x46\xAF\xCF\x25", 16},
        std::string_view{"\xA6\x6A\x63\x28\x3D\x95\xD2\x11\xB5\xD6\x00\xC0\x4F\xD9\x18\xD0", 16},
        std::string_view{"\xB1\x16\x6D\x44\xAD\x8D\x70\x48\xA7\x48\x40\x2E\xA4\x3D\x78\x8C", 16},
        std::string_view{"\x30\xF1\x25\xB7\xEF\x47\x1A\x10\xA5\xF1\x02\x60\x8C\x9E\xEB\xAC", 16}};
    constexpr std::size_t kHead = 8;
    constexpr std::size_t kStorageHead = 24;
    std::string kept(block.substr(0, kHead));
    bool hasStorage = false;
    Bytes rest = Bytes{block}.Part(kHead);
    while (rest.DoubleWord(0) >= kStorageHead && rest.DoubleWord(0) <= rest.size()) {
        const std::size_t size = rest.DoubleWord(0);
        const bool goes = std::ranges::find(kOfTarget, rest.Part(8, 16).all) != kOfTarget.end();
        if (!goes) kept.append(rest.Part(0, size).all);
        hasStorage = hasStorage || !goes;
        rest = rest.Part(size);
    }
    if (!hasStorage) return {};
    kept.append(rest.all);
    PutDoubleWord(kept, 0, static_cast<std::uint32_t>(kept.size()));
    return kept;
}

} // namespace tarvix::shortcuts::link
