#include "platform/names.h"

#include "text/characters.h"

#include <array>

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
    return text.find("\xEF\x80") != text.npos || text.find("\xEF\x81") != text.npos;
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

std::string NameToDrive(std::string_view nativeName) {
    std::string out;
    out.reserve(nativeName.size());
    AppendNameToDrive(out, nativeName);
    return out;
}

std::string NameToNative(std::string_view driveName) {
    if (!MayHoldCarried(driveName)) return std::string(driveName);
    std::string out;
    out.reserve(driveName.size());
    for (std::size_t pos = 0; pos < driveName.size();) {
        const char32_t c = text::NextCharacter(driveName, pos);
        const char32_t carried = Carried(c);
        text::AppendUtf8(out, carried != 0 ? carried : c);
    }
    return out;
}

bool CanBeName(std::string_view driveName) {
    if (driveName.empty() || driveName == "." || driveName == "..") return false;
    bool isAscii = true;
    for (const char c : driveName) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == 0 || byte == '/') return false;
        if (byte >= 128) {
            isAscii = false;
        } else if (kIsReserved[byte]) {
            return false;
        }
    }
    return isAscii || text::IsValidUtf8(driveName);
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
