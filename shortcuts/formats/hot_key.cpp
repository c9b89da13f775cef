#include "shortcuts/formats/hot_key.h"

#include "text/case.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <array>
#include <charconv>

namespace tarvix::shortcuts {

namespace {

constexpr unsigned kByteBits = 8;
constexpr unsigned kKeyMask = 0xFF;

struct Modifier {
    unsigned bit;
    std::string_view name;
};
constexpr std::array<Modifier, 4> kModifiers{{{2, "CTRL"}, {4, "ALT"}, {1, "SHIFT"}, {8, "EXT"}}};

struct Key {
    unsigned code;
    std::string_view name;
};
// Those that are no run of numbers or letters.
constexpr std::array<Key, 38> kKeys{{
    {0x08, "BACKSPACE"},  {0x09, "TAB"},  {0x0D, "ENTER"},   {0x13, "PAUSE"},  {0x1B, "ESC"},
    {0x20, "SPACE"},      {0x21, "PGUP"}, {0x22, "PGDN"},    {0x23, "END"},    {0x24, "HOME"},
    {0x25, "LEFT"},       {0x26, "UP"},   {0x27, "RIGHT"},   {0x28, "DOWN"},   {0x2C, "PRTSC"},
    {0x2D, "INS"},        {0x2E, "DEL"},  {0x6A, "NUM*"},    {0x6B, "NUM+"},   {0x6D, "NUM-"},
    {0x6E, "NUM."},       {0x6F, "NUM/"}, {0x90, "NUMLOCK"}, {0x91, "SCROLL"}, {0xBA, ";"},
    {0xBB, "="},          {0xBC, ","},    {0xBD, "-"},       {0xBE, "."},      {0xBF, "/"},
    {0xC0, "`"},          {0xDB, "["},    {0xDC, "\\"},      {0xDD, "]"},      {0xDE, "'"},
    {0x91, "SCROLLLOCK"}, {0xBB, "PLUS"}, {0x6B, "NUMPLUS"},
}};

struct Run {
    unsigned first;
    unsigned last;
    std::string_view prefix;
    unsigned from; // what stands behind the prefix for the first
};
constexpr std::array<Run, 2> kRuns{{{0x60, 0x69, "NUM", 0}, {0x70, 0x87, "F", 1}}};

bool IsPlainKey(unsigned code) {
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z');
}

std::string KeyName(unsigned code) {
    if (IsPlainKey(code)) return {static_cast<char>(code)};
    for (const Run& run : kRuns) {
        if (code >= run.first && code <= run.last) {
            return fmt::format("{}{}", run.prefix, code - run.first + run.from);
        }
    }
    for (const Key& key : kKeys) {
        if (key.code == code) return std::string(key.name);
    }
    return fmt::format("0x{:02X}", code);
}

std::optional<unsigned> NumberBehind(std::string_view name, std::string_view prefix) {
    if (!name.starts_with(prefix)) return std::nullopt;
    name.remove_prefix(prefix.size());
    if (!text::IsAllDigits(name)) return std::nullopt;
    const auto number = text::ParseWholeNumber(name);
    return number ? std::optional(static_cast<unsigned>(*number)) : std::nullopt;
}

// "0x5B", as a key without a name is told.
std::optional<unsigned> NumberedKey(std::string_view name) {
    constexpr int kHex = 16;
    if (name.size() != 4 || !name.starts_with("0X")) return std::nullopt;
    unsigned code = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + 2, end, code, kHex);
    const bool isKey = error == std::errc{} && stop == end && code > 0;
    return isKey ? std::optional(code) : std::nullopt;
}

std::optional<unsigned> KeyCode(std::string_view name) {
    if (name == "[" || name == "]") return std::nullopt;
    if (name.size() == 1 && IsPlainKey(static_cast<unsigned char>(name[0]))) {
        return static_cast<unsigned char>(name[0]);
    }
    for (const Key& key : kKeys) {
        if (key.name == name) return key.code;
    }
    for (const Run& run : kRuns) {
        const auto number = NumberBehind(name, run.prefix);
        const bool fits =
            number && *number >= run.from && *number - run.from <= run.last - run.first;
        if (fits) return run.first + *number - run.from;
    }
    return NumberedKey(name);
}

std::optional<unsigned> ModifierBit(std::string_view name) {
    for (const Modifier& modifier : kModifiers) {
        if (modifier.name == name) return modifier.bit;
    }
    return name == "CONTROL" ? std::optional(kModifiers[0].bit) : std::nullopt;
}

constexpr std::array<std::string_view, 8> kStyles{"", "Normal", "", "Maximized",
                                                  "", "",       "", "Minimized"};

} // namespace

std::string HotKeyText(std::uint16_t hotKey) {
    std::string result;
    for (const Modifier& modifier : kModifiers) {
        if ((hotKey >> kByteBits & modifier.bit) != 0) result += fmt::format("{}+", modifier.name);
    }
    const unsigned key = hotKey & kKeyMask;
    return key == 0 ? result : result + KeyName(key);
}

std::optional<std::uint16_t> ParseHotKey(std::string_view text) {
    const std::string upper = text::Upper(text::Trim(text));
    if (upper.empty()) return std::uint16_t{0};
    std::string_view rest = upper;
    unsigned modifiers = 0;
    while (true) {
        const std::size_t plus = rest.find('+');
        if (plus == rest.npos) break;
        const auto bit = ModifierBit(text::Trim(rest.substr(0, plus)));
        if (!bit) break;
        modifiers |= *bit;
        rest.remove_prefix(plus + 1);
    }
    const auto code = KeyCode(text::Trim(rest));
    if (!code) return std::nullopt;
    return static_cast<std::uint16_t>(modifiers << kByteBits | *code);
}

std::string_view WindowStyleText(std::uint32_t style) {
    return style < kStyles.size() ? kStyles[style] : std::string_view();
}

std::optional<std::uint32_t> ParseWindowStyle(std::string_view text) {
    for (std::uint32_t i = 1; i < kStyles.size(); ++i) {
        if (!kStyles[i].empty() && kStyles[i] == text) return i;
    }
    return std::nullopt;
}

} // namespace tarvix::shortcuts
