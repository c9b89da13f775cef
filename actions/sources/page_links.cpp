#include "actions/sources/page_links.h"

#include "actions/sources/character_references.h"
#include "actions/sources/page_text.h"
#include "platform/file_system.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/characters.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace tarvix::actions {

namespace {

constexpr std::size_t kBlock = 64 * 1024;

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

// The "<A" of a link at or behind `from`; its blank may still be to come.
std::size_t FindLink(std::string_view page, std::size_t from) {
    for (std::size_t at = FindAscii(page, "<A", from); at != page.npos;
         at = FindAscii(page, "<A", at + 2)) {
        if (at + 2 >= page.size() || IsBlank(page[at + 2])) return at;
    }
    return page.npos;
}

// How many bytes of two-byte characters end with a whole one.
std::size_t WholeWide(std::string_view bytes, bool isBig) {
    std::size_t whole = bytes.size() / 2 * 2;
    if (whole == 0) return 0;
    const auto high = static_cast<unsigned char>(bytes[isBig ? whole - 2 : whole - 1]);
    if (high >= 0xD8 && high <= 0xDB) whole -= 2;
    return whole;
}

// The place behind the ">" that ends the tag at the front, one in quotes left out; npos while it
// isn't there.
std::size_t EndOfTag(std::string_view tag) {
    char quote = 0;
    for (std::size_t at = 0; at < tag.size(); ++at) {
        const char c = tag[at];
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return at + 1;
        }
    }
    return tag.npos;
}

// The "</A>" of a link; one that isn't ended by itself ends where the next one begins. npos while
// neither is there.
std::size_t EndOfLink(std::string_view page, std::size_t from) {
    for (std::size_t at = page.find('<', from); at != page.npos; at = page.find('<', at + 1)) {
        const std::string_view tag = page.substr(at);
        const bool isNext =
            tag.size() > 2 && FindAscii(tag.substr(0, 2), "<A") == 0 && IsBlank(tag[2]);
        if (isNext || FindAscii(tag.substr(0, 4), "</A>") == 0) return at;
    }
    return page.npos;
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// The value of HREF in a tag; nothing without one.
std::optional<std::string_view> TargetIn(std::string_view tag) {
    constexpr std::string_view kName = "HREF";
    for (std::size_t at = FindAscii(tag, kName); at != tag.npos;
         at = FindAscii(tag, kName, at + 1)) {
        std::size_t value = tag.find_first_not_of(" \t\r\n\f", at + kName.size());
        const bool isAlone = IsBlank(tag[at - 1]) || tag[at - 1] == '"' || tag[at - 1] == '\'';
        if (!isAlone || value == tag.npos || tag[value] != '=') continue;
        value = tag.find_first_not_of(" \t\r\n\f", value + 1);
        if (value == tag.npos) return std::nullopt;
        const char quote = tag[value];
        if (quote == '"' || quote == '\'') {
            const std::size_t end = tag.find(quote, value + 1);
            return tag.substr(value + 1, end == tag.npos ? end : end - value - 1);
        }
        const std::size_t end = tag.find_first_of("> \t\r\n\f", value);
        return tag.substr(value, end == tag.npos ? end : end - value);
    }
    return std::nullopt;
}

std::string WithoutTags(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t tag = std::min(text.find('<'), text.size());
        out += text.substr(0, tag);
        text.remove_prefix(tag);
        const std::size_t end = EndOfTag(text);
        text.remove_prefix(std::min(end, text.size()));
    }
    return out;
}

// Line ends and the blanks around them as one blank.
std::string OnOneLine(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t blanks = std::min(text.find_first_not_of(" \t\r\n\f"), text.size());
        const std::string_view run = text.substr(0, blanks);
        out += run.find_first_of("\r\n\f") == run.npos ? run : " ";
        text.remove_prefix(blanks);
        const std::size_t word = std::min(text.find_first_of(" \t\r\n\f"), text.size());
        out += text.substr(0, word);
        text.remove_prefix(word);
    }
    return out;
}

std::string PercentDecoded(std::string_view text) {
    const auto digit = [](char c) {
        if (c >= '0' && c <= '9') return c - '0';
        if (c >= 'A' && c <= 'F') return c - 'A' + 10;
        return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
    };
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '%' && i + 2 < text.size() && digit(text[i + 1]) >= 0 &&
                              digit(text[i + 2]) >= 0;
        out += isEscape ? static_cast<char>(digit(text[i + 1]) * 16 + digit(text[i + 2])) : text[i];
        if (isEscape) i += 2;
    }
    return out;
}

std::string Key(std::string_view escaped) {
    return text::Upper(PercentDecoded(escaped));
}

} // namespace

void LinkScanner::Feed(std::string_view piece) {
    buffer_ += piece;
    std::string_view page = buffer_;
    while (!page.empty()) {
        const std::size_t link = FindLink(page, 0);
        if (link == page.npos) {
            // A "<" at the end may begin one.
            page.remove_prefix(page.ends_with('<') ? page.size() - 1 : page.size());
            break;
        }
        page.remove_prefix(link);
        const std::size_t settled = ScanLink(page);
        if (settled == 0) break;
        page.remove_prefix(settled);
    }
    buffer_.erase(0, buffer_.size() - page.size());
}

std::size_t LinkScanner::ScanLink(std::string_view page) {
    constexpr std::size_t kTag = 2; // "<A"
    const bool isTooLong = page.size() > kLongestLink;
    if (page.size() <= kTag) return 0;
    std::size_t begin = EndOfTag(page.substr(0, kLongestLink));
    if (begin == page.npos && !isTooLong) return 0;
    // A quote that isn't ended is none, and without a ">" there is no tag at all.
    if (begin == page.npos) begin = std::min(page.find('>'), kLongestLink - 1) + 1;
    const std::string_view target = TargetIn(page.substr(0, begin)).value_or(std::string_view());
    if (target.empty()) return begin;
    const std::size_t end = EndOfLink(page, begin);
    if (end == page.npos) return isTooLong ? begin : 0;
    take_({std::string(Trimmed(target)), WithoutTags(page.substr(begin, end - begin))});
    return end;
}

void LinkNames::Add(std::string_view target, std::string_view text) {
    constexpr std::string_view kMarks = "/\\?#&=;";
    const std::string plain = DecodeReferences(target, ReferencePlace::kAttribute);
    std::string_view path = plain;
    const std::size_t number = texts_.size();
    texts_.emplace_back(text);
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find_first_of(kMarks, at), path.size());
        if (end > at) parts_.try_emplace(Key(path.substr(at, end - at)), number);
        at = end + 1;
    }
    // A name may hold such marks as they are.
    const auto addLast = [&](std::string_view whole) {
        if (whole.ends_with('/')) whole.remove_suffix(1);
        const std::string_view last = whole.substr(whole.rfind('/') + 1);
        if (!last.empty()) last_.try_emplace(Key(last), number);
    };
    addLast(path.substr(0, path.find_first_of("?#")));
    addLast(path.substr(0, path.find('#')));
    addLast(path);
}

std::string_view LinkNames::TextFor(std::string_view name) const {
    const std::string key = text::Upper(name);
    for (const Index* index : {&last_, &parts_}) {
        const auto found = index->find(key);
        if (found != index->end()) return texts_[found->second];
    }
    return {};
}

LinkReader::LinkReader(platform::ContentTypes& types)
    : types_(types), scanner_([this](const PageLink& link) { Note(link); }) {}

void LinkReader::Feed(std::string_view block, bool isLast) {
    if (!std::exchange(hasBegun_, true)) {
        encoding_ = EncodingOf(block);
        block.remove_prefix(encoding_.markSize);
    }
    if (!encoding_.IsWide()) return scanner_.Feed(block);
    left_ += block;
    const bool isBig = encoding_.kind == PageEncoding::Kind::kUtf16Big;
    const std::size_t whole = isLast ? left_.size() : WholeWide(left_, isBig);
    scanner_.Feed(FromWide(std::string_view(left_).substr(0, whole), isBig));
    left_.erase(0, whole);
}

void LinkReader::Note(const PageLink& link) {
    // Two-byte characters were made text before.
    const auto decoded = [this](const std::string& bytes) {
        return encoding_.IsWide() ? bytes : PageText(types_, encoding_, bytes);
    };
    const std::string text = DecodeReferences(OnOneLine(decoded(link.text)));
    if (!Trimmed(text).empty()) names_.Add(decoded(link.target), Trimmed(text));
}

platform::Result<LinkNames> ReadLinks(platform::FileSystem& files, platform::ContentTypes& types,
                                      std::string_view path, const std::function<bool()>& goesOn) {
    LinkReader reader(types);
    for (std::uint64_t offset = 0;;) {
        TX_TRY_ASSIGN(const std::string block, files.ReadBytes(path, offset, kBlock));
        offset += block.size();
        const bool isLast = block.size() < kBlock;
        reader.Feed(block, isLast);
        if (isLast || !goesOn()) return reader.TakeNames();
    }
}

} // namespace tarvix::actions
