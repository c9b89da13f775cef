#include "platform/names.h"

#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

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

constexpr std::string_view kForbiddenInNames = "\\:*?\"<>|/"; // and control characters

// What the bytes of a text are. It is asked of each name and path several times, so it looks at
// sixteen at once.
class BytesSeen {
  public:
    explicit BytesSeen(std::string_view text) {
        for (; text.size() >= sizeof(Block); text.remove_prefix(sizeof(Block)))
            Take(text.data());
        if (text.empty()) return;
        std::array<char, sizeof(Block)> rest;
        rest.fill('a');
        text.copy(rest.data(), text.size());
        Take(rest.data());
    }
    bool AnyControl() const { return HighBits(control_) != 0; }
    bool AnyForbidden() const { return HighBits(forbidden_ | control_) != 0; }
    bool AnyBeyondAscii() const { return HighBits(all_) != 0; }

  private:
    using Block [[gnu::vector_size(16)]] = unsigned char;

    void Take(const char* at) {
        Block bytes;
        std::memcpy(&bytes, at, sizeof bytes);
        all_ |= bytes;
        control_ |= static_cast<Block>(bytes < ' ');
        for (const char c : kForbiddenInNames)
            forbidden_ |= static_cast<Block>(bytes == static_cast<unsigned char>(c));
    }
    static std::uint64_t HighBits(Block block) {
        const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(block);
        return (halves[0] | halves[1]) & 0x8080808080808080U;
    }

    Block all_{};
    Block control_{};
    Block forbidden_{};
};

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

// Whether every byte means the same on disk and in drive form.
bool IsPlain(std::string_view name) {
    if (name.empty()) return true;
    if (name.front() == ' ' || IsCarriedAtEnd(name.back())) return false;
    const BytesSeen seen(name);
    if (seen.AnyForbidden()) return false;
    return !seen.AnyBeyondAscii() || (!MayHoldCarried(name) && text::IsValidUtf8(name));
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

// Whether no byte is a control character and none is no text.
bool IsShownAsItIs(std::string_view native) {
    const BytesSeen seen(native);
    return !seen.AnyControl() && (!seen.AnyBeyondAscii() || text::IsValidUtf8(native));
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
    const BytesSeen seen(driveName);
    if (seen.AnyForbidden()) return false;
    return !seen.AnyBeyondAscii() || text::IsValidUtf8(driveName);
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

void AppendNativeForDisplay(std::string& out, std::string_view native) {
    if (IsShownAsItIs(native)) {
        out += native;
    } else {
        AppendAllShown(out, native);
    }
}

std::string NativeForDisplay(std::string_view native) {
    std::string out;
    out.reserve(native.size());
    AppendNativeForDisplay(out, native);
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
