#include "shortcuts/replace_text.h"

#include "text/case.h"
#include "text/characters.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tarvix::shortcuts {

namespace {

bool IsWild(char c) {
    return c == '*' || c == '?';
}

// Characters of a text, so that case and "?" go by characters.
std::vector<std::string_view> CharactersOf(std::string_view text) {
    std::vector<std::string_view> characters;
    while (!text.empty()) {
        char32_t c = 0;
        const std::size_t size = text::DecodeOne(text, c);
        characters.push_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return characters;
}

bool IsEqual(std::string_view a, std::string_view b, bool matchesCase) {
    return matchesCase ? a == b : text::EqualNoCase(a, b);
}

using Runs =
    std::vector<std::pair<std::size_t, std::size_t>>; // first character and behind the last

// The runs of a value that fits the pattern; each "*" takes as little as it can.
std::optional<Runs> RunsOf(const std::vector<std::string_view>& value,
                           const std::vector<std::string_view>& pattern, bool matchesCase) {
    Runs runs;
    std::size_t at = 0;
    std::size_t in = 0;
    // Where to go on when the last "*" takes one character more.
    std::size_t star = std::string::npos;
    Runs atStar;
    while (at < value.size() || in < pattern.size()) {
        if (in < pattern.size() && pattern[in] == "*") {
            runs.emplace_back(at, at);
            star = in++;
            atStar = runs;
            continue;
        }
        const bool fits = in < pattern.size() && at < value.size() &&
                          (pattern[in] == "?" || IsEqual(value[at], pattern[in], matchesCase));
        if (fits) {
            if (pattern[in] == "?") runs.emplace_back(at, at + 1);
            ++at;
            ++in;
            continue;
        }
        if (star == std::string::npos || atStar.back().second == value.size()) return std::nullopt;
        at = ++atStar.back().second;
        in = star + 1;
        runs = atStar;
    }
    return runs;
}

std::string ByPattern(std::string_view value, const Replacement& replacement) {
    const auto characters = CharactersOf(value);
    const auto runs = RunsOf(characters, CharactersOf(replacement.find), replacement.matchesCase);
    if (!runs) return std::string(value);
    std::string result;
    std::size_t next = 0;
    for (const char c : replacement.with) {
        if (!IsWild(c) || next == runs->size()) {
            result += c;
            continue;
        }
        const auto [from, to] = (*runs)[next++];
        for (std::size_t i = from; i < to; ++i) {
            result += characters[i];
        }
    }
    return result;
}

std::string ByText(std::string_view value, const Replacement& replacement) {
    if (replacement.matchesCase) return text::Replace(value, replacement.find, replacement.with);
    const auto characters = CharactersOf(value);
    const auto find = CharactersOf(replacement.find);
    std::string result;
    for (std::size_t at = 0; at < characters.size();) {
        const bool hasRoom = find.size() <= characters.size() - at;
        const bool isHit =
            hasRoom &&
            std::equal(
                find.begin(), find.end(), characters.begin() + static_cast<std::ptrdiff_t>(at),
                [](std::string_view a, std::string_view b) { return text::EqualNoCase(a, b); });
        result += isHit ? std::string_view(replacement.with) : characters[at];
        at += isHit ? find.size() : 1;
    }
    return result;
}

} // namespace

std::string Replaced(std::string_view value, const Replacement& replacement) {
    if (replacement.find.empty()) return std::string(value);
    return replacement.isPattern ? ByPattern(value, replacement) : ByText(value, replacement);
}

} // namespace tarvix::shortcuts
