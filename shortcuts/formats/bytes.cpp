#include "shortcuts/formats/bytes.h"

#include "text/characters.h"
#include "text/encoding.h"

#include <array>

namespace tarvix::shortcuts {

namespace {

constexpr unsigned kByteBits = 8;
constexpr char32_t kHighSurrogate = 0xD800;
constexpr char32_t kLowSurrogate = 0xDC00;
constexpr char32_t kSurrogateMask = 0xFC00;
constexpr char32_t kFirstAstral = 0x10000;

bool IsSurrogate(char32_t unit, char32_t half) {
    return (unit & kSurrogateMask) == half;
}

// What the bytes 0x80 to 0x9F stand for.
constexpr std::size_t kOddBytes = 32;
const std::array<char32_t, kOddBytes>& OddCharacters() {
    static const auto kTable = [] {
        std::array<char32_t, kOddBytes> table{};
        for (std::size_t i = 0; i < kOddBytes; ++i) {
            const char byte = static_cast<char>(0x80U + i);
            (void)text::DecodeOne(text::FromFileBytes({&byte, 1}), table[i]);
        }
        return table;
    }();
    return kTable;
}

// The byte of a character, or -1.
int CodePageByte(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
    const auto& table = OddCharacters();
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i] == c) return static_cast<int>(0x80 + i);
    }
    return -1;
}

} // namespace

std::uint8_t Bytes::Byte(std::size_t at) const {
    return at < all.size() ? static_cast<std::uint8_t>(all[at]) : std::uint8_t{0};
}

std::uint16_t Bytes::Word(std::size_t at) const {
    if (all.size() < 2 || at > all.size() - 2) return 0;
    return static_cast<std::uint16_t>(Byte(at) | Byte(at + 1) << kByteBits);
}

std::uint32_t Bytes::DoubleWord(std::size_t at) const {
    if (all.size() < 4 || at > all.size() - 4) return 0;
    return Word(at) | static_cast<std::uint32_t>(Word(at + 2)) << (2 * kByteBits);
}

Bytes Bytes::Part(std::size_t at, std::size_t count) const {
    return {at <= all.size() ? all.substr(at, count) : std::string_view()};
}

std::string Bytes::Text(std::size_t at) const {
    const std::string_view rest = Part(at).all;
    return FromCodePage(rest.substr(0, rest.find('\0')));
}

std::string Bytes::WideText(std::size_t at) const {
    std::size_t end = at;
    while (Word(end) != 0) {
        end += 2;
    }
    return FromUtf16(Part(at, end - at).all);
}

void AppendWord(std::string& out, std::uint16_t value) {
    out += static_cast<char>(value & 0xFFU);
    out += static_cast<char>(value >> kByteBits);
}

void AppendDoubleWord(std::string& out, std::uint32_t value) {
    AppendWord(out, static_cast<std::uint16_t>(value & 0xFFFFU));
    AppendWord(out, static_cast<std::uint16_t>(value >> (2 * kByteBits)));
}

void PutWord(std::string& bytes, std::size_t at, std::uint16_t value) {
    std::string word;
    AppendWord(word, value);
    bytes.replace(at, word.size(), word);
}

void PutDoubleWord(std::string& bytes, std::size_t at, std::uint32_t value) {
    std::string word;
    AppendDoubleWord(word, value);
    bytes.replace(at, word.size(), word);
}

std::string FromUtf16(std::string_view bytes) {
    constexpr unsigned kSurrogateBits = 10;
    constexpr char32_t kPayload = 0x3FF;
    const Bytes units{bytes};
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        char32_t c = units.Word(at);
        const char32_t low = units.Word(at + 2);
        if (IsSurrogate(c, kHighSurrogate) && IsSurrogate(low, kLowSurrogate)) {
            c = kFirstAstral + ((c & kPayload) << kSurrogateBits) + (low & kPayload);
            at += 2;
        }
        text::AppendUtf8(text, c);
    }
    if (bytes.size() % 2 != 0) text::AppendUtf8(text, 0xFFFD);
    return text;
}

std::string ToUtf16(std::string_view text) {
    constexpr unsigned kSurrogateBits = 10;
    constexpr char32_t kPayload = 0x3FF;
    std::string units;
    units.reserve(text.size() * 2);
    while (!text.empty()) {
        char32_t c = 0;
        text.remove_prefix(text::DecodeOne(text, c));
        if (c < kFirstAstral) {
            AppendWord(units, static_cast<std::uint16_t>(c));
            continue;
        }
        c -= kFirstAstral;
        AppendWord(units, static_cast<std::uint16_t>(kHighSurrogate + (c >> kSurrogateBits)));
        AppendWord(units, static_cast<std::uint16_t>(kLowSurrogate + (c & kPayload)));
    }
    return units;
}

std::string FromCodePage(std::string_view bytes) {
    // A mark at the front of a text is no mark of a file.
    return text::IsValidUtf8(bytes) ? std::string(bytes) : text::FromFileBytes(bytes);
}

std::string FromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const bool isOdd = code >= 0x80 && code < 0x80 + kOddBytes;
        text::AppendUtf8(text, isOdd ? OddCharacters()[code - 0x80U] : code);
    }
    return text;
}

std::string ToCodePage(std::string_view text, char stand, bool& isWhole) {
    std::string bytes;
    bytes.reserve(text.size());
    isWhole = true;
    while (!text.empty()) {
        char32_t c = 0;
        text.remove_prefix(text::DecodeOne(text, c));
        const int byte = CodePageByte(c);
        if (byte < 0) isWhole = false;
        bytes += byte < 0 ? stand : static_cast<char>(byte);
    }
    return bytes;
}

} // namespace tarvix::shortcuts
