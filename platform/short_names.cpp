#include "platform/short_names.h"

#include <algorithm>
#include <cstdint>

namespace tarvix::platform {

namespace {
constexpr std::string_view kDigits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kShortSigns = "!#$%&'()-@^_`{}";
constexpr std::size_t kMadeBase = 8; // six, "~", one more

char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsDigitOrLetter(char c) {
    return kDigits.find(UpperAscii(c)) != kDigits.npos;
}

bool IsShortCharacter(char c) {
    return IsDigitOrLetter(c) || kShortSigns.find(c) != kShortSigns.npos;
}

bool AllShort(std::string_view s) {
    return std::all_of(s.begin(), s.end(), IsShortCharacter);
}

// Whether `tail` is empty or "." and one to three characters.
bool IsShortExtension(std::string_view tail) {
    if (tail.empty()) return true;
    return tail[0] == '.' && tail.size() >= 2 && tail.size() <= 4 && AllShort(tail.substr(1));
}

// FNV-1a with a last mixing step: the same on every machine, for ever, since lists may hold the
// forms made from it.
std::uint64_t StableHash(std::string_view s) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char c : s) {
        hash ^= static_cast<unsigned char>(c);
        hash *= 1099511628211ULL;
    }
    hash ^= hash >> 32;
    hash *= 0x9E3779B97F4A7C15ULL;
    return hash ^ (hash >> 29);
}

void AppendShortExtension(std::string& out, std::string_view name) {
    const auto dot = name.rfind('.');
    if (dot == name.npos || dot == 0) return;
    std::size_t taken = 0;
    for (const char c : name.substr(dot + 1)) {
        if (!IsShortCharacter(c)) continue;
        if (taken == 0) out += '.';
        out += UpperAscii(c);
        if (++taken == 3) return;
    }
}
} // namespace

bool IsShortName(std::string_view name) {
    const std::string_view base = name.substr(0, std::min(name.find('.'), name.size()));
    return !base.empty() && base.size() <= 8 && AllShort(base) &&
           IsShortExtension(name.substr(base.size()));
}

std::string ShortNameOf(std::string_view name) {
    if (IsShortName(name)) return std::string(name);
    std::uint64_t hash = StableHash(name);
    std::string out;
    for (std::size_t i = 0; i < kMadeBase; ++i) {
        if (i == kMadeBase - 2) {
            out += '~';
            continue;
        }
        out += kDigits[hash % kDigits.size()];
        hash /= kDigits.size();
    }
    AppendShortExtension(out, name);
    return out;
}

bool LooksLikeMadeShortName(std::string_view name) {
    if (name.size() < kMadeBase || name[kMadeBase - 2] != '~') return false;
    for (std::size_t i = 0; i < kMadeBase; ++i) {
        if (i != kMadeBase - 2 && !IsDigitOrLetter(name[i])) return false;
    }
    return IsShortExtension(name.substr(kMadeBase));
}

} // namespace tarvix::platform
