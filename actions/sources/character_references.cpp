#include "actions/sources/character_references.h"

#include "actions/sources/reference_table.h"
#include "text/characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>

namespace tarvix::actions {

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

struct Named {
    std::array<char32_t, 2> characters{}; // the second may be 0
    bool needsEnd = true;                 // a ";" behind it
};

using NamedTable = std::unordered_map<std::string_view, Named>;

NamedTable ReadTable() {
    NamedTable table;
    std::string_view rest = kReferenceTable;
    while (!rest.empty()) {
        const std::string_view row = rest.substr(0, rest.find(' '));
        rest.remove_prefix(row.size() + 1);
        const std::size_t mark = row.find_first_of(":!");
        Named named{.needsEnd = row[mark] == ':'};
        std::string_view codes = row.substr(mark + 1);
        for (char32_t& character : named.characters) {
            std::uint32_t code = 0;
            const auto read = std::from_chars(codes.data(), codes.data() + codes.size(), code, 16);
            character = code;
            codes.remove_prefix(static_cast<std::size_t>(read.ptr - codes.data()));
            if (codes.starts_with('.')) codes.remove_prefix(1);
        }
        table.emplace(row.substr(0, mark), named);
    }
    return table;
}

const NamedTable& Table() {
    static const NamedTable table = ReadTable();
    return table;
}

bool IsWordCharacter(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Pages of old count these by Windows-1252.
char32_t Counted(std::uint32_t code) {
    constexpr std::array<char16_t, 32> kWindows1252 = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    if (code >= 0x80 && code <= 0x9F) return kWindows1252[code - 0x80];
    const bool isNone = code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF);
    return isNone ? kNoCharacter : static_cast<char32_t>(code);
}

// The reference behind the "&" at the front: what it stands for, and how many bytes it takes.
struct Reference {
    std::array<char32_t, 2> characters{};
    std::size_t size = 0;
};

std::optional<Reference> NumberAt(std::string_view text) {
    std::size_t at = 1;
    const bool isHex = at < text.size() && (text[at] == 'x' || text[at] == 'X');
    if (isHex) ++at;
    const std::size_t begin = at;
    constexpr std::uint32_t kBeyond = 0x110000;
    std::uint32_t code = 0;
    for (; at < text.size(); ++at) {
        std::uint32_t digit = 0;
        const auto read = std::from_chars(&text[at], &text[at] + 1, digit, isHex ? 16 : 10);
        if (read.ec != std::errc()) break;
        code = std::min(code * (isHex ? 16 : 10) + digit, kBeyond);
    }
    if (at == begin) return std::nullopt;
    if (at < text.size() && text[at] == ';') ++at;
    return Reference{{Counted(code), 0}, at};
}

std::optional<Reference> NameAt(std::string_view text, ReferencePlace place) {
    constexpr std::size_t kLongestName = 31;
    std::size_t end = 0;
    while (end < text.size() && end <= kLongestName && IsWordCharacter(text[end]))
        ++end;
    const auto whole = Table().find(text.substr(0, end));
    if (whole != Table().end() && end < text.size() && text[end] == ';') {
        return Reference{whole->second.characters, end + 1};
    }
    for (std::size_t size = end; size >= 2; --size) {
        const auto old = Table().find(text.substr(0, size));
        if (old == Table().end() || old->second.needsEnd) continue;
        const char next = size < text.size() ? text[size] : ' ';
        const bool isPart =
            place == ReferencePlace::kAttribute && (next == '=' || IsWordCharacter(next));
        if (isPart) return std::nullopt;
        return Reference{old->second.characters, size};
    }
    return std::nullopt;
}

} // namespace

std::string DecodeReferences(std::string_view text, ReferencePlace place) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const std::size_t mark = std::min(text.find('&'), text.size());
        out += text.substr(0, mark);
        text.remove_prefix(mark);
        if (text.empty()) break;
        text.remove_prefix(1);
        const auto reference = text.starts_with('#') ? NumberAt(text) : NameAt(text, place);
        if (!reference) {
            out += '&';
            continue;
        }
        for (const char32_t character : reference->characters) {
            if (character != 0) text::AppendUtf8(out, character);
        }
        text.remove_prefix(reference->size);
    }
    return out;
}

} // namespace tarvix::actions
