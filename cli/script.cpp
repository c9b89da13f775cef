#include "cli/script.h"

#include "cli/nearest.h"
#include "cli/values.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <array>
#include <charconv>
#include <optional>

namespace tarvix::cli {

namespace {

using Parsed = std::expected<Statement, std::string>;

std::unexpected<std::string> Wrong(std::string sentence) {
    return std::unexpected(std::move(sentence));
}

// The first word, with blanks and tabs around it dropped; `text` goes on behind it and one blank.
std::string_view TakeWord(std::string_view& text) {
    constexpr std::string_view kBlanks = " \t";
    const std::size_t start = std::min(text.find_first_not_of(kBlanks), text.size());
    const std::size_t end = std::min(text.find_first_of(kBlanks, start), text.size());
    const std::string_view word = text.substr(start, end - start);
    text.remove_prefix(std::min(end + 1, text.size()));
    return word;
}

std::string Unquoted(std::string_view value) {
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
        value = value.substr(1, value.size() - 2);
    }
    return std::string(value);
}

std::optional<std::uint64_t> ReadNumber(std::string_view word) {
    std::uint64_t number = 0;
    const char* end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc{} || rest != end || number == 0) return std::nullopt;
    return number;
}

Parsed ParseSet(std::string_view rest) {
    const std::size_t equals = rest.find('=');
    const std::string_view control = text::Trim(rest.substr(0, equals));
    if (equals == rest.npos || control.empty()) return Wrong("Write \"set CONTROL = VALUE\".");
    std::string_view value = rest.substr(equals + 1);
    if (value.starts_with(' ')) value.remove_prefix(1);
    return Statement{
        .kind = StatementKind::kSet, .target = std::string(control), .value = Unquoted(value)};
}

Parsed ParseClick(std::string_view rest) {
    const std::string_view control = text::Trim(rest);
    if (control.empty()) return Wrong("Write \"click CONTROL\".");
    return Statement{.kind = StatementKind::kClick, .target = std::string(control)};
}

Parsed ParseLeave(std::string_view rest) {
    const std::string_view control = text::Trim(rest);
    if (control.empty()) return Wrong("Write \"leave CONTROL\".");
    return Statement{.kind = StatementKind::kLeave, .target = std::string(control)};
}

Parsed ParseReset(std::string_view rest) {
    const std::string_view control = text::Trim(rest);
    if (control.empty()) return Wrong("Write \"reset CONTROL\".");
    return Statement{.kind = StatementKind::kReset, .target = std::string(control)};
}

Parsed ParseColumn(std::string_view rest) {
    TX_TRY_ASSIGN(const auto column, ReadColumn(text::Trim(rest)));
    return Statement{.kind = StatementKind::kColumn, .columns = {column}};
}

// "7", or "3-9" for all from 3 to 9.
bool ReadRows(std::string_view word, std::vector<std::uint64_t>& rows) {
    constexpr std::uint64_t kMost = 1'000'000; // more than a list can hold
    const std::size_t dash = word.find('-');
    const auto first = ReadNumber(word.substr(0, dash));
    const auto last = dash == word.npos ? first : ReadNumber(word.substr(dash + 1));
    if (!first || !last || *last < *first || *last - *first > kMost) return false;
    for (std::uint64_t row = *first; row <= *last; ++row)
        rows.push_back(row);
    return true;
}

Parsed ParseRows(std::string_view rest, StatementKind kind, std::string_view usage) {
    Statement statement{.kind = kind};
    while (!text::Trim(rest).empty()) {
        const std::string_view word = TakeWord(rest);
        if (word.empty()) continue;
        if (!ReadRows(word, statement.numbers)) {
            return Wrong(fmt::format("\"{}\" is no row: rows are counted from 1.", word));
        }
    }
    if (statement.numbers.empty()) return Wrong(std::string(usage));
    return statement;
}

Parsed ParseSelect(std::string_view rest) {
    constexpr std::string_view kUsage =
        "Write \"select N ...\", \"select like PATTERN\" or \"select none\".";
    std::string_view behind = rest;
    const std::string_view word = TakeWord(behind);
    if (text::EqualNoCase(word, "none") && text::Trim(behind).empty()) {
        return Statement{.kind = StatementKind::kSelectNone};
    }
    if (text::EqualNoCase(word, "like")) {
        if (behind.empty()) return Wrong(std::string(kUsage));
        return Statement{.kind = StatementKind::kSelectLike, .value = Unquoted(behind)};
    }
    return ParseRows(rest, StatementKind::kSelectRows, kUsage);
}

Parsed ParseOneRow(std::string_view rest, StatementKind kind, std::string_view usage) {
    auto statement = ParseRows(rest, kind, usage);
    if (statement && statement->numbers.size() > 1) return Wrong(std::string(usage));
    return statement;
}

Parsed ParseDoubleClick(std::string_view rest) {
    return ParseOneRow(rest, StatementKind::kDoubleClick, "Write \"doubleclick N\".");
}

Parsed ParseRightClick(std::string_view rest) {
    return ParseOneRow(rest, StatementKind::kRightClick, "Write \"rightclick N\".");
}

Parsed ParseAnswer(std::string_view rest) {
    return Statement{.kind = StatementKind::kAnswer, .value = Unquoted(rest)};
}

Parsed ParseAfter(std::string_view rest) {
    const auto count = ReadNumber(TakeWord(rest));
    const std::string_view yields = TakeWord(rest);
    const std::string_view click = TakeWord(rest);
    const std::string_view control = text::Trim(rest);
    const bool isPlural = text::EqualNoCase(yields, "yields") || text::EqualNoCase(yields, "yield");
    if (!count || !isPlural || !text::EqualNoCase(click, "click") || control.empty()) {
        return Wrong("Write \"after N yields click CONTROL\", with N from 1.");
    }
    return Statement{
        .kind = StatementKind::kAfter, .target = std::string(control), .numbers = {*count}};
}

Parsed ParseDumpList(std::string_view rest) {
    Statement statement{.kind = StatementKind::kDumpList};
    while (!text::Trim(rest).empty()) {
        const std::string_view word = TakeWord(rest);
        if (word.empty()) continue;
        TX_TRY_ASSIGN(const auto column, ReadColumn(word));
        statement.columns.push_back(column);
    }
    return statement;
}

Parsed ParseDump(std::string_view rest) {
    const std::string_view what = TakeWord(rest);
    if (what.empty()) return Wrong("Write \"dump lstMain\", prompts, log, errorlog or a control.");
    if (text::EqualNoCase(what, "lstMain") || text::EqualNoCase(what, "frmSearch.lstMain")) {
        return ParseDumpList(rest);
    }
    if (!text::Trim(rest).empty()) {
        return Wrong("Only \"dump lstMain\" takes more words behind it.");
    }
    if (text::EqualNoCase(what, "prompts")) return Statement{.kind = StatementKind::kDumpPrompts};
    if (text::EqualNoCase(what, "log")) return Statement{.kind = StatementKind::kDumpLog};
    if (text::EqualNoCase(what, "errorlog")) {
        return Statement{.kind = StatementKind::kDumpErrorLog};
    }
    return Statement{.kind = StatementKind::kDumpControl, .target = std::string(what)};
}

struct StatementWord {
    std::string_view word;
    Parsed (*parse)(std::string_view rest);
};

constexpr std::array<StatementWord, 11> kStatements{{{"set", ParseSet},
                                                     {"click", ParseClick},
                                                     {"leave", ParseLeave},
                                                     {"reset", ParseReset},
                                                     {"column", ParseColumn},
                                                     {"select", ParseSelect},
                                                     {"doubleclick", ParseDoubleClick},
                                                     {"rightclick", ParseRightClick},
                                                     {"answer", ParseAnswer},
                                                     {"after", ParseAfter},
                                                     {"dump", ParseDump}}};

Parsed ParseStatement(std::string_view line) {
    std::string_view rest = line;
    const std::string_view first = TakeWord(rest);
    for (const auto& [word, parse] : kStatements) {
        if (text::EqualNoCase(first, word)) return parse(rest);
    }
    return Wrong(fmt::format("There is no statement \"{}\".{}", first,
                             DidYouMean(first, kStatements, &StatementWord::word)));
}

} // namespace

std::expected<std::vector<Statement>, ScriptError> ParseScript(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    std::vector<Statement> statements;
    int number = 0;
    for (std::string_view line : text::Split(text, '\n')) {
        ++number;
        if (line.ends_with('\r')) line.remove_suffix(1);
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (line.empty() || line.starts_with('#')) continue;
        auto statement = ParseStatement(line);
        if (!statement) return std::unexpected(ScriptError{number, std::move(statement.error())});
        statement->line = number;
        statements.push_back(std::move(*statement));
    }
    return statements;
}

} // namespace tarvix::cli
