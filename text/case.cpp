#include "text/case.h"

#include "text/ascii_run.h"
#include "text/characters.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace tarvix::text {

namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;
constexpr char32_t kSharpS = 0xDF; // has no upper-case form, but utf8proc gives U+1E9E

constexpr char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

constexpr char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

char32_t LowerCharacter(char32_t codePoint) {
    if (codePoint < 0x80)
        return static_cast<unsigned char>(LowerAscii(static_cast<char>(codePoint)));
    if (codePoint > kLastCodePoint) return codePoint;
    return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(codePoint)));
}

bool IsAsciiByte(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

constexpr std::uint64_t kEachByte = 0x0101010101010101;

// Eight bytes with the case of the ASCII letters from `first` on turned over.
template <char first>
std::uint64_t TurnEight(std::uint64_t word) {
    // The high bit of a byte tells whether it is that letter or beyond.
    const std::uint64_t low = word & ~kHighOfEach;
    const std::uint64_t fromFirst = low + (0x80 - first) * kEachByte;
    const std::uint64_t behindLast = low + (0x80 - (first + 26)) * kEachByte;
    return word ^ ((fromFirst & ~behindLast & ~word & kHighOfEach) >> 2);
}

// Turns eight bytes, and tells whether one is beyond ASCII.
template <char first>
bool TurnEightAt(char* at) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, 8);
    const std::uint64_t turned = TurnEight<first>(word);
    std::memcpy(at, &turned, 8);
    return (word & kHighOfEach) != 0;
}

// The ASCII letters of a text, in place. Whether it has other characters, too. What was turned
// once isn't turned again, so that the last eight bytes may be in both of two steps.
template <char first, char (*MapAscii)(char)>
bool MapAllAscii(char* at, std::size_t size) {
    bool isBeyond = false;
    if (size < 8) {
        for (; size > 0; ++at, --size) {
            isBeyond |= !IsAsciiByte(*at);
            *at = MapAscii(*at);
        }
        return isBeyond;
    }
    for (; size > 8; at += 8, size -= 8)
        isBeyond |= TurnEightAt<first>(at);
    return TurnEightAt<first>(at + size - 8) || isBeyond;
}

// The other forms of characters of two bytes, by their code, where these take two bytes as well.
using FormsOfTwoBytes = std::array<char16_t, 0x800>;

template <char32_t (*MapCharacter)(char32_t)>
FormsOfTwoBytes MakeForms() {
    FormsOfTwoBytes forms{};
    for (char32_t character = 0x80; character < forms.size(); ++character) {
        const char32_t mapped = MapCharacter(character);
        if (mapped >= 0x80 && mapped < forms.size())
            forms[character] = static_cast<char16_t>(mapped);
    }
    return forms;
}

// Up to the first character that takes more bytes, or that has no form here.
std::size_t MapTwoBytes(std::string& text, std::size_t pos, const FormsOfTwoBytes& forms) {
    for (; (pos = SkipAscii(text, pos)) + 1 < text.size(); pos += 2) {
        const auto lead = static_cast<unsigned char>(text[pos]);
        const auto next = static_cast<unsigned char>(text[pos + 1]);
        if (lead < 0xC2 || lead > 0xDF || (next & 0xC0U) != 0x80) break;
        const char16_t form = forms[(lead & 0x1FU) << 6 | (next & 0x3FU)];
        if (form == 0) break;
        text[pos] = static_cast<char>(0xC0U | form >> 6);
        text[pos + 1] = static_cast<char>(0x80U | (form & 0x3FU));
    }
    return pos;
}

// The character at `pos`, which moves behind it.
template <char32_t (*MapCharacter)(char32_t)>
void MapOne(std::string& out, std::size_t& pos) {
    const std::size_t begin = pos;
    const char32_t character = NextCharacter(out, pos);
    const char32_t mapped = MapCharacter(character);
    if (mapped == character) return;
    std::string other;
    AppendUtf8(other, mapped);
    out.replace(begin, pos - begin, other);
    pos = begin + other.size();
}

template <char first, char (*MapAscii)(char), char32_t (*MapCharacter)(char32_t)>
void AppendMapped(std::string& out, std::string_view s) {
    std::size_t pos = out.size();
    out.append(s);
    if (!MapAllAscii<first, MapAscii>(out.data() + pos, s.size())) return;
    static const FormsOfTwoBytes forms = MakeForms<MapCharacter>();
    while (true) {
        pos = MapTwoBytes(out, pos, forms);
        if (pos == out.size()) return;
        MapOne<MapCharacter>(out, pos);
    }
}

char32_t NextUpper(std::string_view s, std::size_t& pos) {
    if (IsAsciiByte(s[pos])) return static_cast<unsigned char>(UpperAscii(s[pos++]));
    return UpperCharacter(NextCharacter(s, pos));
}

// Bytes of the characters at the front in which both are the same, byte by byte.
std::size_t CommonStart(std::string_view a, std::string_view b) {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t same = 0;
    for (std::uint64_t left = 0, right = 0; same + 8 <= shorter; same += 8) {
        std::memcpy(&left, a.data() + same, 8);
        std::memcpy(&right, b.data() + same, 8);
        if (left != right) break;
    }
    while (same < shorter && a[same] == b[same])
        ++same;
    const auto isInside = [](std::string_view s, std::size_t pos) {
        return pos < s.size() && (static_cast<unsigned char>(s[pos]) & 0xC0) == 0x80;
    };
    while (same > 0 && (isInside(a, same) || isInside(b, same)))
        --same;
    return same;
}

} // namespace

char32_t UpperCharacter(char32_t codePoint) {
    if (codePoint < 0x80)
        return static_cast<unsigned char>(UpperAscii(static_cast<char>(codePoint)));
    if (codePoint > kLastCodePoint || codePoint == kSharpS) return codePoint;
    return static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(codePoint)));
}

void AppendUpper(std::string& out, std::string_view s) {
    AppendMapped<'a', UpperAscii, UpperCharacter>(out, s);
}

std::string Upper(std::string_view s) {
    std::string out;
    AppendUpper(out, s);
    return out;
}

std::string Lower(std::string_view s) {
    std::string out;
    AppendMapped<'A', LowerAscii, LowerCharacter>(out, s);
    return out;
}

int CompareNoCase(std::string_view a, std::string_view b) {
    std::size_t i = CommonStart(a, b);
    std::size_t j = i;
    while (i < a.size() && j < b.size()) {
        const char32_t left = NextUpper(a, i);
        const char32_t right = NextUpper(b, j);
        if (left != right) return left < right ? -1 : 1;
    }
    return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

bool StartsWithNoCase(std::string_view s, std::string_view start) {
    std::size_t i = CommonStart(s, start);
    std::size_t j = i;
    while (i < s.size() && j < start.size()) {
        if (NextUpper(s, i) != NextUpper(start, j)) return false;
    }
    return j >= start.size();
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    return a == b || CompareNoCase(a, b) == 0;
}

bool ContainsNoCase(std::string_view haystack, std::string_view needle) {
    if (!IsAscii(haystack) || !IsAscii(needle)) {
        return Upper(haystack).find(Upper(needle)) != std::string::npos;
    }
    const auto same = [](char a, char b) { return UpperAscii(a) == UpperAscii(b); };
    return std::search(haystack.begin(), haystack.end(), needle.begin(), needle.end(), same) !=
               haystack.end() ||
           needle.empty();
}

} // namespace tarvix::text
