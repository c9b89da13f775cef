#include "text/characters.h"

#include "text/ascii_run.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tarvix::text {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBadByte = 0x110000;

bool EightAscii(const char* at) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    return (word & kHighOfEach) == 0;
}

unsigned char ByteAt(std::string_view s, std::size_t pos) {
    return static_cast<unsigned char>(s[pos]);
}

struct LeadByte {
    std::size_t bytes;
    char32_t bits;
    char32_t least; // below it the form is longer than needed
};

LeadByte ReadLeadByte(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) return {2, lead & 0x1FU, 0x80};
    if (lead >= 0xE0 && lead <= 0xEF) return {3, lead & 0x0FU, 0x800};
    if (lead >= 0xF0 && lead <= 0xF4) return {4, lead & 0x07U, 0x10000};
    return {0, 0, 0};
}

// Bytes of the valid character of several bytes at `pos`, or 0.
std::size_t DecodeLong(std::string_view s, std::size_t pos, char32_t& codePoint) {
    const LeadByte lead = ReadLeadByte(ByteAt(s, pos));
    if (lead.bytes == 0 || s.size() - pos < lead.bytes) return 0;
    char32_t value = lead.bits;
    for (std::size_t i = 1; i < lead.bytes; ++i) {
        const unsigned char next = ByteAt(s, pos + i);
        if ((next & 0xC0U) != 0x80) return 0;
        value = (value << 6) | (next & 0x3FU);
    }
    if (value < lead.least || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return 0;
    codePoint = value;
    return lead.bytes;
}

// Whether a character of two bytes, valid by these alone, stands at `pos`: most that aren't ASCII.
bool IsPairAt(std::string_view s, std::size_t pos) {
    return s.size() - pos >= 2 && static_cast<unsigned char>(ByteAt(s, pos) - 0xC2) < 0x1E &&
           (ByteAt(s, pos + 1) & 0xC0U) == 0x80;
}

// Bytes of the valid character at `pos`, or 0.
std::size_t BytesAt(std::string_view s, std::size_t pos) {
    if (ByteAt(s, pos) < 0x80) return 1;
    if (IsPairAt(s, pos)) return 2;
    char32_t ignored;
    return DecodeLong(s, pos, ignored);
}

// Byte position `count` characters behind byte `pos`, at most the end; `count` keeps what is left.
std::size_t Skip(std::string_view s, std::size_t pos, std::size_t& count) {
    while (count > 0 && pos < s.size()) {
        if (count >= 8 && s.size() - pos >= 8 && EightAscii(s.data() + pos)) {
            pos += 8;
            count -= 8;
            continue;
        }
        pos += std::max<std::size_t>(1, BytesAt(s, pos));
        --count;
    }
    return pos;
}

std::size_t OffsetOf(std::string_view s, std::size_t characters) {
    return Skip(s, 0, characters);
}

} // namespace

bool IsAscii(std::string_view s) {
    std::size_t pos = 0;
    for (; s.size() - pos >= 8; pos += 8) {
        if (!EightAscii(s.data() + pos)) return false;
    }
    if (s.size() >= 8) return EightAscii(s.data() + s.size() - 8);
    for (; pos < s.size(); ++pos) {
        if (ByteAt(s, pos) >= 0x80) return false;
    }
    return true;
}

std::string Concat(std::initializer_list<std::string_view> parts) {
    std::size_t size = 0;
    for (const std::string_view part : parts)
        size += part.size();
    std::string out;
    // The room that is offered may be larger than was asked for.
    out.resize_and_overwrite(size, [parts, size](char* to, std::size_t) {
        for (const std::string_view part : parts)
            to += part.copy(to, part.size());
        return size;
    });
    return out;
}

std::size_t Length(std::string_view s) {
    std::size_t length = s.size();
    for (std::size_t pos = SkipAscii(s, 0); pos < s.size(); pos = SkipAscii(s, pos)) {
        const std::size_t bytes = std::max<std::size_t>(1, BytesAt(s, pos));
        length -= bytes - 1;
        pos += bytes;
    }
    return length;
}

std::string_view Left(std::string_view s, std::size_t count) {
    return s.substr(0, OffsetOf(s, count));
}

std::string_view Right(std::string_view s, std::size_t count) {
    const std::size_t length = Length(s);
    return count >= length ? s : s.substr(OffsetOf(s, length - count));
}

std::string_view Mid(std::string_view s, std::size_t start, std::size_t count) {
    s.remove_prefix(OffsetOf(s, start > 0 ? start - 1 : 0));
    return count >= s.size() ? s : Left(s, count);
}

std::size_t InStr(std::string_view s, std::string_view find, std::size_t start) {
    std::size_t before = start > 0 ? start - 1 : 0;
    const std::size_t wanted = before;
    const std::size_t from = Skip(s, 0, before);
    if (before > 0 || from >= s.size()) return 0;
    const std::size_t hit = s.find(find, from);
    if (hit == std::string_view::npos) return 0;
    return wanted + Length(s.substr(from, hit - from)) + 1;
}

std::size_t InStrRev(std::string_view s, std::string_view find) {
    if (find.empty()) return Length(s);
    const std::size_t hit = s.rfind(find);
    return hit == std::string_view::npos ? 0 : Length(s.substr(0, hit)) + 1;
}

std::string_view LTrim(std::string_view s) {
    s.remove_prefix(std::min(s.find_first_not_of(' '), s.size()));
    return s;
}

std::string_view RTrim(std::string_view s) {
    return s.substr(0, s.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view s) {
    return LTrim(RTrim(s));
}

std::string Replace(std::string_view s, std::string_view find, std::string_view with) {
    std::string out;
    out.reserve(s.size());
    std::size_t pos = 0;
    while (!find.empty()) {
        const std::size_t hit = s.find(find, pos);
        if (hit == std::string_view::npos) break;
        out.append(s, pos, hit - pos).append(with);
        pos = hit + find.size();
    }
    return out.append(s, pos);
}

std::vector<std::string_view> Split(std::string_view s, char separator) {
    std::vector<std::string_view> pieces;
    for (std::size_t hit = s.find(separator); hit != std::string_view::npos;
         hit = s.find(separator)) {
        pieces.push_back(s.substr(0, hit));
        s.remove_prefix(hit + 1);
    }
    pieces.push_back(s);
    return pieces;
}

std::string Repeat(std::string_view s, std::size_t times) {
    std::string out;
    out.reserve(s.size() * times);
    for (std::size_t i = 0; i < times; ++i) {
        out.append(s);
    }
    return out;
}

bool IsValidUtf8(std::string_view s) {
    for (std::size_t pos = SkipAscii(s, 0); pos < s.size(); pos = SkipAscii(s, pos)) {
        const std::size_t bytes = BytesAt(s, pos);
        if (bytes == 0) return false;
        pos += bytes;
    }
    return true;
}

std::size_t DecodeOne(std::string_view s, char32_t& codePoint) {
    if (s.empty()) return 0;
    std::size_t pos = 0;
    const char32_t value = NextCharacter(s, pos);
    codePoint = value >= kFirstBadByte ? kReplacement : value;
    return pos;
}

char32_t NextCharacter(std::string_view s, std::size_t& pos) {
    const unsigned char first = ByteAt(s, pos);
    if (first < 0x80) {
        ++pos;
        return first;
    }
    char32_t value = 0;
    if (const std::size_t bytes = DecodeLong(s, pos, value); bytes > 0) {
        pos += bytes;
        return value;
    }
    ++pos;
    return kFirstBadByte + first;
}

void AppendUtf8(std::string& out, char32_t codePoint) {
    if (codePoint >= kFirstBadByte + 0x80 && codePoint <= kFirstBadByte + 0xFF) {
        out += static_cast<char>(codePoint - kFirstBadByte);
        return;
    }
    if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
        codePoint = kReplacement;
    }
    const auto tail = [&](int shift) {
        out += static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU));
    };
    if (codePoint < 0x80) {
        out += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        out += static_cast<char>(0xC0U | (codePoint >> 6));
        tail(0);
    } else if (codePoint < 0x10000) {
        out += static_cast<char>(0xE0U | (codePoint >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0U | (codePoint >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace tarvix::text
