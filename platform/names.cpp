#include "platform/names.h"

#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
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

// The byte that `c` carries, or 0.
unsigned char Carried(char32_t c) {
    const char32_t code = c - kCarriedBase;
    if (c <= kCarriedBase || code > 0xFF) return 0;
    const bool isCarried = code >= 0x80 || IsReserved(code) || code == ' ' || code == '.';
    return isCarried ? static_cast<unsigned char>(code) : 0;
}

bool IsCarriedRange(char32_t c) {
    return c >= kCarriedBase && c <= kCarriedBase + 0xFF;
}

bool IsCarriedAtEnd(char c) {
    return c == ' ' || c == '.';
}

// All ByteKinds of a text.
unsigned KindsIn(std::string_view text) {
    unsigned kinds = 0;
    for (const char c : text)
        kinds |= kKindOfByte[static_cast<unsigned char>(c)];
    return kinds;
}

// Whether every byte means the same on disk and in drive form.
bool IsPlain(std::string_view name) {
    if (name.empty()) return true;
    if (name.front() == ' ' || IsCarriedAtEnd(name.back())) return false;
    const unsigned kinds = KindsIn(name);
    if ((kinds & kForbidden) != 0) return false;
    return (kinds & kBeyondAscii) == 0 || (!MayHoldCarried(name) && text::IsValidUtf8(name));
}

// One character of a disk name that carries nothing by its place.
void AppendCarried(std::string& out, std::string_view character, char32_t c) {
    if (IsReserved(c)) {
        text::AppendUtf8(out, kCarriedBase + c);
    } else if (c > 0x10FFFF || IsCarriedRange(c)) {
        for (const char byte : character)
            text::AppendUtf8(out, kCarriedBase + static_cast<unsigned char>(byte));
    } else {
        out += character;
    }
}

// One character as it is shown: a control character as its picture, a byte that is no text as \xNN.
void AppendShown(std::string& out, char32_t c) {
    if (c > 0x10FFFF) {
        out += fmt::format("\\x{:02X}", static_cast<unsigned>(c - 0x110000));
    } else if (c < 32) {
        text::AppendUtf8(out, kControlPictures + c);
    } else {
        text::AppendUtf8(out, c);
    }
}

// "." and "..", which lead to folders, also where a dot is carried.
bool IsDots(std::string_view driveName) {
    constexpr std::size_t kLongest = 6; // two carried dots
    if (driveName.size() > kLongest || (driveName[0] != '.' && driveName[0] != '\xEF'))
        return false;
    const std::string native = NameToNative(driveName);
    return native == "." || native == "..";
}

// Whether no byte is a control character and none is no text. Whole paths are asked for, so that it
// pays to look at many bytes at once, as this loop lets the compiler do.
bool IsShownAsItIs(std::string_view native) {
    unsigned char bits = 0;
    unsigned char isControl = 0;
    for (const char c : native) {
        const auto byte = static_cast<unsigned char>(c);
        bits |= byte;
        isControl |= static_cast<unsigned char>(byte < ' ');
    }
    if (isControl != 0) return false;
    return bits < 0x80 || text::IsValidUtf8(native);
}

void AppendAllShown(std::string& out, std::string_view native) {
    for (std::size_t pos = 0; pos < native.size();)
        AppendShown(out, text::NextCharacter(native, pos));
}
} // namespace

// All carried characters start with these bytes in UTF-8 (U+F000 to U+F0FF).
bool MayHoldCarried(std::string_view text) {
    std::size_t at = text.find('\xEF');
    while (at != text.npos && at + 1 < text.size()) {
        const auto next = static_cast<unsigned char>(text[at + 1]);
        if (next >= 0x80 && next <= 0x83) return true;
        at = text.find('\xEF', at + 1);
    }
    return false;
}

void AppendNameToDrive(std::string& out, std::string_view nativeName) {
    if (IsPlain(nativeName)) {
        out += nativeName;
        return;
    }
    for (std::size_t pos = 0; pos < nativeName.size();) {
        const std::size_t start = pos;
        const char32_t c = text::NextCharacter(nativeName, pos);
        const bool isAtStart = start == 0 && c == ' ';
        const bool isAtEnd = pos == nativeName.size() && (c == ' ' || c == '.');
        if (isAtStart || isAtEnd) {
            text::AppendUtf8(out, kCarriedBase + c);
        } else {
            AppendCarried(out, nativeName.substr(start, pos - start), c);
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

std::string PieceToDrive(std::string_view nativePiece) {
    std::string out;
    out.reserve(nativePiece.size());
    for (std::size_t pos = 0; pos < nativePiece.size();) {
        const std::size_t start = pos;
        const char32_t c = text::NextCharacter(nativePiece, pos);
        AppendCarried(out, nativePiece.substr(start, pos - start), c);
    }
    return out;
}

void AppendNameToNative(std::string& out, std::string_view driveName) {
    if (!MayHoldCarried(driveName)) {
        out += driveName;
        return;
    }
    for (std::size_t pos = 0; pos < driveName.size();) {
        const std::size_t start = pos;
        const unsigned char carried = Carried(text::NextCharacter(driveName, pos));
        if (carried != 0) {
            out += static_cast<char>(carried);
        } else {
            out += driveName.substr(start, pos - start);
        }
    }
}

std::string NameToNative(std::string_view driveName) {
    std::string out;
    out.reserve(driveName.size());
    AppendNameToNative(out, driveName);
    return out;
}

bool CanBeName(std::string_view driveName) {
    if (driveName.empty() || IsDots(driveName)) return false;
    const unsigned kinds = KindsIn(driveName);
    if ((kinds & kForbidden) != 0) return false;
    return (kinds & kBeyondAscii) == 0 || text::IsValidUtf8(driveName);
}

std::string ForDisplay(std::string_view driveText) {
    if (!MayHoldCarried(driveText)) return std::string(driveText);
    std::string out;
    std::string carriedText; // bytes that are carried one behind the other may make a character
    out.reserve(driveText.size());
    for (std::size_t pos = 0; pos < driveText.size();) {
        const std::size_t start = pos;
        const unsigned char carried = Carried(text::NextCharacter(driveText, pos));
        if (carried != 0) {
            carriedText += static_cast<char>(carried);
            continue;
        }
        AppendAllShown(out, carriedText);
        carriedText.clear();
        out += driveText.substr(start, pos - start);
    }
    AppendAllShown(out, carriedText);
    return out;
}

std::string NativeForDisplay(std::string_view native) {
    if (IsShownAsItIs(native)) return std::string(native);
    std::string out;
    out.reserve(native.size());
    AppendAllShown(out, native);
    return out;
}

std::string FileAddress(std::string_view native) {
    constexpr std::string_view kPlain = "-._~/";
    std::string out = "file://";
    for (const char c : native) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') || kPlain.contains(c);
        out += isPlain
                   ? std::string(1, c)
                   : fmt::format("%{:02X}", static_cast<unsigned>(static_cast<unsigned char>(c)));
    }
    return out;
}

} // namespace tarvix::platform
