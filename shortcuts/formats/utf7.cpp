#include "shortcuts/formats/utf7.h"

#include "shortcuts/formats/bytes.h"

#include <algorithm>
#include <cstdint>

namespace tarvix::shortcuts {

namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr unsigned kDigitBits = 6;
constexpr unsigned kDigitMask = 0x3F;
constexpr unsigned kUnitBits = 16;

bool IsPlain(char c) {
    return c >= ' ' && c < '~' && c != '+' && c != '\\';
}

// The characters of a run of digits.
std::string FromRun(std::string_view run) {
    std::string units;
    std::uint32_t bits = 0;
    unsigned count = 0;
    for (const char digit : run) {
        bits = bits << kDigitBits | static_cast<std::uint32_t>(kDigits.find(digit));
        count += kDigitBits;
        if (count < kUnitBits) continue;
        count -= kUnitBits;
        AppendWord(units, static_cast<std::uint16_t>(bits >> count));
        bits &= (1U << count) - 1;
    }
    return FromUtf16(units);
}

std::string ToRun(std::string_view text) {
    const std::string units = ToUtf16(text);
    std::string run;
    std::uint32_t bits = 0;
    unsigned count = 0;
    for (std::size_t at = 0; at < units.size(); at += 2) {
        bits = bits << kUnitBits | Bytes{units}.Word(at);
        count += kUnitBits;
        for (; count >= kDigitBits; count -= kDigitBits) {
            run += kDigits[bits >> (count - kDigitBits) & kDigitMask];
        }
        bits &= (1U << count) - 1;
    }
    if (count > 0) run += kDigits[bits << (kDigitBits - count) & kDigitMask];
    return run;
}

} // namespace

std::string FromUtf7(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t plus = text.find('+');
        result.append(text.substr(0, plus));
        if (plus == text.npos) break;
        text.remove_prefix(plus + 1);
        const std::size_t end = std::min(text.find_first_not_of(kDigits), text.size());
        const bool isClosed = end < text.size() && text[end] == '-';
        result.append(end == 0 ? "+" : FromRun(text.substr(0, end)));
        text.remove_prefix(end + (isClosed ? 1 : 0));
    }
    return result;
}

std::string ToUtf7(std::string_view text) {
    std::string result;
    std::size_t at = 0;
    while (at < text.size()) {
        if (text[at] == '+') {
            result += "+-";
            ++at;
            continue;
        }
        if (IsPlain(text[at])) {
            result += text[at++];
            continue;
        }
        std::size_t end = at;
        while (end < text.size() && !IsPlain(text[end]) && text[end] != '+') {
            ++end;
        }
        result.append("+").append(ToRun(text.substr(at, end - at))).append("-");
        at = end;
    }
    return result;
}

} // namespace tarvix::shortcuts
