#include "cli/field_text.h"

#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>

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

// Each cell is asked for, and hardly any has one: no way out of the loop, so that many bytes are
// looked at together.
bool HasTsvMark(std::string_view field) {
    bool has = false;
    for (const char c : field)
        has |= (c == '\\') | (c == '\t') | (c == '\n') | (c == '\r');
    return has;
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
