#include "shortcuts/formats/exec_line.h"

#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace tarvix::shortcuts {

namespace {

struct Escape {
    char letter;
    char character;
};
constexpr std::array<Escape, 5> kEscapes{
    {{'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}}};

// Behind the first argument, quotes and all.
std::size_t EndOfArgument(std::string_view exec) {
    bool isQuoted = false;
    for (std::size_t i = 0; i < exec.size(); ++i) {
        if (isQuoted && exec[i] == '\\') {
            ++i;
        } else if (exec[i] == '"') {
            isQuoted = !isQuoted;
        } else if (exec[i] == ' ' && !isQuoted) {
            return i;
        }
    }
    return exec.size();
}

std::string Unquoted(std::string_view argument) {
    std::string result;
    bool isQuoted = false;
    for (std::size_t i = 0; i < argument.size(); ++i) {
        const bool hasNext = i + 1 < argument.size();
        if (argument[i] == '"') {
            isQuoted = !isQuoted;
            continue;
        }
        const bool isEscape = isQuoted && argument[i] == '\\' && hasNext;
        const bool isPercent = argument[i] == '%' && hasNext && argument[i + 1] == '%';
        if (isEscape || isPercent) ++i;
        result += argument[i];
    }
    return result;
}

} // namespace

std::string UnescapeValue(std::string_view stored) {
    std::string value;
    value.reserve(stored.size());
    for (std::size_t i = 0; i < stored.size(); ++i) {
        const auto escape = std::ranges::find_if(kEscapes, [&](const Escape& e) {
            return stored[i] == '\\' && i + 1 < stored.size() && e.letter == stored[i + 1];
        });
        const bool isEscape = escape != kEscapes.end();
        value += isEscape ? escape->character : stored[i];
        if (isEscape) ++i;
    }
    return value;
}

std::string EscapeValue(std::string_view value) {
    std::string stored;
    stored.reserve(value.size());
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto escape = std::ranges::find(kEscapes, value[i], &Escape::character);
        // Only a blank in front would be lost.
        const bool needs = escape != kEscapes.end() && (value[i] != ' ' || i == 0);
        if (needs)
            stored.append("\\").append(1, escape->letter);
        else
            stored += value[i];
    }
    return stored;
}

ExecLine SplitExec(std::string_view exec) {
    exec = text::LTrim(exec);
    const std::size_t end = EndOfArgument(exec);
    const std::string_view first = exec.substr(0, end);
    return {.program = Unquoted(first),
            .stored = std::string(first),
            .arguments = std::string(text::LTrim(exec.substr(end)))};
}

std::string QuoteProgram(std::string_view program) {
    constexpr std::string_view kReserved = " \t\n\"'\\><~|&;$*?#()`";
    constexpr std::string_view kEscapedInQuotes = "\"`$\\";
    std::string inside;
    for (const char c : program) {
        if (kEscapedInQuotes.find(c) != kEscapedInQuotes.npos) inside += '\\';
        if (c == '%') inside += '%';
        inside += c;
    }
    const bool needsQuotes = program.find_first_of(kReserved) != program.npos;
    return needsQuotes ? fmt::format("\"{}\"", inside) : inside;
}

} // namespace tarvix::shortcuts
