#include "platform/names.h"

#include "text/characters.h"

#include <array>
#include <cstdint>

namespace tarvix::platform {

namespace {
constexpr char32_t kCarriedBase = 0xF000;
constexpr char32_t kControlPictures = 0x2400;
constexpr std::string_view kReservedCharacters = "\\:*?\"<>|";

constexpr auto kIsReserved = [] {
    std::array<bool, 128> table{};
    for (std::size_t control = 1; control < 32; ++control)
        table[control] = true;
    for (const char c : kReservedCharacters)
        table[static_cast<std::size_t>(c)] = true;
    return table;
}();

enum ByteKind : std::uint8_t { kForbidden = 1, kBeyondAscii = 2 };

constexpr auto kKindOfByte = [] {
    std::array<std::uint8_t, 256> table{};
    for (std::size_t byte = 0; byte < kIsReserved.size(); ++byte)
        table[byte] = kIsReserved[byte] || byte == 0 || byte == '/' ? kForbidden : 0;
    for (std::size_t byte = kIsReserved.size(); byte < table.size(); ++byte)
        table[byte] = kBeyondAscii;
    return table;
}();

bool IsReserved(char32_t c) {
    return c < kIsReserved.size() && kIsReserved[c];
}

// The reserved character that `c` carries, or 0.
char32_t Carried(char32_t c) {
    return c > kCarriedBase && IsReserved(c - kCarriedBase) ? c - kCarriedBase : 0;
}

// Whether every byte means the same on disk and in drive form.
bool IsPlain(std::string_view name) {
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 128 || kIsReserved[byte]) return false;
    }
    return true;
}

// All carried characters start with these bytes in UTF-8 (U+F000 to U+F07F).
bool MayHoldCarried(std::string_view text) {
    std::size_t at = text.find('\xEF');
    while (at != text.npos && at + 1 < text.size()) {
        if (text[at + 1] == '\x80' || text[at + 1] == '\x81') return true;
        at = text.find('\xEF', at + 1);
    }
    return false;
}
} // namespace

void AppendNameToDrive(std::string& out, std::string_view nativeName) {
    if (IsPlain(nativeName)) {
        out += nativeName;
        return;
    }
    for (std::size_t pos = 0; pos < nativeName.size();) {
        const std::size_t start = pos;
        const char32_t c = text::NextCharacter(nativeName, pos);
        if (IsReserved(c)) {
            text::AppendUtf8(out, kCarriedBase + c);
        } else if (c > 0x10FFFF || Carried(c) != 0) {
            out += '?';
        } else {
            out += nativeName.substr(start, pos - start);
        }
    }
}

std::string CarryReserved(std::string_view typed) {
    std::string out;
    out.reserve(typed.size());
    for (const char c : typed) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < kIsReserved.size() && kIsReserved[byte]) {
            text::AppendUtf8(out, kCarriedBase + byte);
        } else {
            out += c;
        }
    }
    return out;
}

std::string NameToDrive(std::string_view nativeName) {
    std::string out;
    out.reserve(nativeName.size());
    AppendNameToDrive(out, nativeName);
    return out;
}

void AppendNameToNative(std::string& out, std::string_view driveName) {
    if (!MayHoldCarried(driveName)) {
        out += driveName;
        return;
    }
    for (std::size_t pos = 0; pos < driveName.size();) {
        const char32_t c = text::NextCharacter(driveName, pos);
        const char32_t carried = Carried(c);
        text::AppendUtf8(out, carried != 0 ? carried : c);
    }
}

std::string NameToNative(std::string_view driveName) {
    std::string out;
    out.reserve(driveName.size());
    AppendNameToNative(out, driveName);
    return out;
}

bool CanBeName(std::string_view driveName) {
    if (driveName.empty() || driveName == "." || driveName == "..") return false;
    unsigned kinds = 0;
    for (const char c : driveName)
        kinds |= kKindOfByte[static_cast<unsigned char>(c)];
    if ((kinds & kForbidden) != 0) return false;
    return (kinds & kBeyondAscii) == 0 || text::IsValidUtf8(driveName);
}

std::string ForDisplay(std::string_view driveText) {
    if (!MayHoldCarried(driveText)) return std::string(driveText);
    std::string out;
    out.reserve(driveText.size());
    for (std::size_t pos = 0; pos < driveText.size();) {
        const char32_t c = text::NextCharacter(driveText, pos);
        const char32_t carried = Carried(c);
        text::AppendUtf8(out, carried == 0   ? c
                              : carried < 32 ? kControlPictures + carried
                                             : carried);
    }
    return out;
}

} // namespace tarvix::platform
