#include "cli/field_text.h"

#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarvix::cli {

namespace {

constexpr unsigned char kDeleteCharacter = 0x7F;
constexpr char32_t kFirstUpperControl = 0x80; // of those that ISO 6429 adds
constexpr char32_t kLastUpperControl = 0x9F;
constexpr char32_t kLastCharacter = 0x10FFFF; // above it stands a byte that is no text

bool IsPlainByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= ' ' && byte < kDeleteCharacter;
}

bool IsHarmless(char32_t c) {
    if (c < ' ' || c == kDeleteCharacter || c > kLastCharacter) return false;
    return c < kFirstUpperControl || c > kLastUpperControl;
}

constexpr std::uint64_t kEachByte = 0x0101010101010101;

// Whether one of eight bytes is this one.
constexpr std::uint64_t Holds(std::uint64_t word, char byte) {
    const std::uint64_t differs = word ^ kEachByte * static_cast<unsigned char>(byte);
    return (differs - kEachByte) & ~differs & kEachByte << 7;
}

bool HasTsvMarkIn(const char* eight) {
    std::uint64_t word = 0;
    std::memcpy(&word, eight, sizeof word);
    return (Holds(word, '\\') | Holds(word, '\t') | Holds(word, '\n') | Holds(word, '\r')) != 0;
}

// Each cell is asked for, and hardly any has one.
bool HasTsvMark(std::string_view field) {
    constexpr std::size_t kAtOnce = 8;
    if (field.size() < kAtOnce) {
        return std::ranges::any_of(
            field, [](char c) { return c == '\\' || c == '\t' || c == '\n' || c == '\r'; });
    }
    for (std::size_t pos = 0; pos + kAtOnce < field.size(); pos += kAtOnce) {
        if (HasTsvMarkIn(field.data() + pos)) return true;
    }
    return HasTsvMarkIn(field.data() + field.size() - kAtOnce);
}

void AppendByte(std::string& out, char c) {
    switch (c) {
    case '\t':
        out += "\\t";
        break;
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    default:
        out += fmt::format("\\x{:02X}", static_cast<unsigned>(static_cast<unsigned char>(c)));
    }
}

} // namespace

void EscapeTsvField(std::string& text, std::size_t begin) {
    if (!HasTsvMark(std::string_view(text).substr(begin))) return;
    const std::string field = text.substr(begin);
    text.resize(begin);
    for (const char c : field) {
        if (c == '\\') {
            text += "\\\\";
        } else if (c == '\t' || c == '\n' || c == '\r') {
            AppendByte(text, c);
        } else {
            text += c;
        }
    }
}

void EscapeForTerminal(std::string& text, std::size_t begin) {
    if (std::ranges::all_of(std::string_view(text).substr(begin), IsPlainByte)) return;
    const std::string field = text.substr(begin);
    text.resize(begin);
    for (std::size_t pos = 0; pos < field.size();) {
        const std::size_t start = pos;
        const char32_t c = text::NextCharacter(field, pos);
        const std::string_view bytes = std::string_view(field).substr(start, pos - start);
        if (IsHarmless(c)) {
            text += bytes;
            continue;
        }
        for (const char byte : bytes)
            AppendByte(text, byte);
    }
}

} // namespace tarvix::cli
