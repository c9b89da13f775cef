#include "shortcuts/formats/link_parts.h"

#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::shortcuts::link {

namespace {

constexpr std::string_view kClassId{"\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16};
constexpr std::size_t kAtClassId = 4;
constexpr std::string_view kThisPc{"\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8\x08\0\x2B\x30\x30\x9D",
                                   16};
constexpr std::size_t kSmallestBlock = 8;
constexpr std::size_t kLinkInfoHead = 0x1C;

// Goes through the bytes part by part; false from the first on that isn't there whole.
class Cursor {
  public:
    explicit Cursor(std::string_view all) : all_(all) {}

    bool Take(std::size_t count, std::string_view& part) {
        if (count > all_.size() - at_) return false;
        part = all_.substr(at_, count);
        at_ += count;
        return true;
    }
    Bytes Rest() const { return {all_.substr(at_)}; }

  private:
    std::string_view all_;
    std::size_t at_ = 0;
};

bool TakeIdList(Cursor& cursor, Parts& parts) {
    if (!parts.Has(kHasIdList)) return true;
    if (cursor.Rest().size() < 2) return false;
    return cursor.Take(std::size_t{2} + cursor.Rest().Word(0), parts.idList);
}

bool TakeLinkInfo(Cursor& cursor, Parts& parts) {
    if (!parts.Has(kHasLinkInfo)) return true;
    const std::size_t size = cursor.Rest().DoubleWord(0);
    return size >= kLinkInfoHead && cursor.Take(size, parts.linkInfo);
}

bool TakeTexts(Cursor& cursor, Parts& parts) {
    const std::size_t width = parts.Has(kIsUnicode) ? 2 : 1;
    for (std::size_t i = 0; i < kTextCount; ++i) {
        if (!parts.Has(kTextFlags[i])) continue;
        std::string_view count;
        if (!cursor.Take(2, count)) return false;
        if (!cursor.Take(Bytes{count}.Word(0) * width, parts.texts[i])) return false;
    }
    return true;
}

bool TakeBlocks(Cursor& cursor, Parts& parts) {
    while (true) {
        const Bytes rest = cursor.Rest();
        const std::size_t size = rest.DoubleWord(0);
        if (size < 4) break;
        Block block;
        if (size < kSmallestBlock || !cursor.Take(size, block.all)) return false;
        block.signature = rest.DoubleWord(4);
        parts.blocks.push_back(block);
    }
    parts.tail = cursor.Rest().all;
    return true;
}

bool IsThisPc(const Bytes& item) {
    return item.Byte(2) == 0x1F && item.Part(4, kThisPc.size()).all == kThisPc;
}

// Where the Unicode name of a file entry stands; 0 for nowhere. Some writers leave the head of its
// block empty.
std::size_t WideNameAt(const Bytes& item) {
    constexpr std::size_t kPrimaryName = 14;
    constexpr std::uint32_t kNameBlock = 0xBEEF0004;
    constexpr std::size_t kUsualPlace = 0x14;
    const std::size_t block = item.Word(item.size() - 2);
    if (block < kPrimaryName || block >= item.size()) return 0;
    const std::uint32_t signature = item.DoubleWord(block + 4);
    if (signature == 0) return block + kUsualPlace;
    const std::size_t at = item.Word(block + 16);
    return signature == kNameBlock && at >= kUsualPlace ? block + at : 0;
}

std::string NameOfEntry(const Bytes& item) {
    constexpr std::size_t kPrimaryName = 14;
    const std::size_t wideAt = WideNameAt(item);
    std::string name = wideAt != 0 ? item.WideText(wideAt) : std::string();
    if (!name.empty()) return name;
    const bool isWide = (item.Byte(2) & 4) != 0;
    return isWide ? item.WideText(kPrimaryName) : item.Text(kPrimaryName);
}

// The next item of a chain put behind the path; false when it is none of a path.
bool AppendItem(std::string& path, const Bytes& item) {
    const unsigned kind = item.Byte(2);
    if ((kind & 0x71U) == 0x21) {
        path = text::StripTrailingSlash(item.Text(3));
        return path.size() == 2;
    }
    if ((kind & 0x70U) != 0x30 || path.empty()) return false;
    const std::string name = NameOfEntry(item);
    if (name.empty()) return false;
    path.append("\\").append(name);
    return true;
}

} // namespace

std::string Parts::TextOf(Text text) const {
    std::string value = Has(kIsUnicode) ? FromUtf16(texts[text]) : FromCodePage(texts[text]);
    value.erase(value.find_last_not_of('\0') + 1);
    return value;
}

std::optional<Parts> Take(std::string_view bytes) {
    const Bytes all{bytes};
    const bool isLink = bytes.size() >= kHeaderSize && all.DoubleWord(0) == kHeaderSize &&
                        bytes.substr(kAtClassId, kClassId.size()) == kClassId;
    if (!isLink) return std::nullopt;
    Parts parts;
    Cursor cursor(bytes);
    (void)cursor.Take(kHeaderSize, parts.header);
    parts.flags = all.DoubleWord(kAtFlags);
    parts.isCut =
        !TakeIdList(cursor, parts) || !TakeLinkInfo(cursor, parts) || !TakeTexts(cursor, parts);
    parts.isWhole = !parts.isCut && TakeBlocks(cursor, parts);
    return parts;
}

std::string PathOfIdList(std::string_view idList) {
    Bytes list{idList.substr(std::min<std::size_t>(2, idList.size()))};
    std::string path;
    bool isFirst = true;
    while (list.Word(0) != 0) {
        const std::size_t size = list.Word(0);
        if (size < 4 || size > list.size()) return {};
        const Bytes item = list.Part(0, size);
        if (isFirst) {
            if (!IsThisPc(item)) return {};
        } else if (!AppendItem(path, item)) {
            return {};
        }
        isFirst = false;
        list = list.Part(size);
    }
    return path.size() == 2 ? fmt::format("{}\\", path) : path;
}

std::string PathOfLinkInfo(std::string_view linkInfo) {
    constexpr std::uint32_t kLocal = 1;
    constexpr std::uint32_t kNetwork = 2;
    constexpr std::size_t kWithUnicode = 0x24;
    const Bytes info{linkInfo};
    const bool hasUnicode = info.DoubleWord(4) >= kWithUnicode;
    const auto text = [&](std::size_t plain, std::size_t wide) {
        const std::size_t wideAt = hasUnicode ? info.DoubleWord(wide) : 0;
        if (wideAt != 0) return info.WideText(wideAt);
        const std::size_t at = info.DoubleWord(plain);
        return at != 0 ? info.Text(at) : std::string();
    };
    const std::uint32_t flags = info.DoubleWord(8);
    const std::string suffix = text(0x18, 0x20);
    if ((flags & kLocal) != 0) return text(0x10, 0x1C) + suffix;
    const std::size_t at = info.DoubleWord(0x14);
    if ((flags & kNetwork) == 0 || at == 0) return {};
    const Bytes network = info.Part(at);
    const std::size_t name = network.DoubleWord(8);
    if (name < 0x14) return {};
    const std::string share =
        name > 0x14 ? network.WideText(network.DoubleWord(0x14)) : network.Text(name);
    return suffix.empty() ? share : text::JoinPath(share, suffix);
}

std::string PathOfEnvironment(std::string_view block) {
    constexpr std::size_t kPlainSize = 260;
    const Bytes bytes{block};
    std::string wide = bytes.WideText(kSmallestBlock + kPlainSize);
    return wide.empty() ? bytes.Part(0, kSmallestBlock + kPlainSize).Text(kSmallestBlock) : wide;
}

} // namespace tarvix::shortcuts::link
