#include "actions/place/special_rule.h"

#include "platform/names.h"
#include "text/characters.h"
#include "text/numbers.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::actions {

namespace {

constexpr int kHighestPosition = 250;

constexpr std::string_view kUnmatched = "Asterick's do NOT MATCH in Special Rule - example *2*";
constexpr std::string_view kNotNumeric =
    "Replacement character position is not numeric in Special Rule - example *2*";
constexpr std::string_view kOutOfRange =
    "Replacement character position must be 1-250 in Special Rule - example *1**250*";
constexpr std::string_view kBadSearchSet =
    "Search Set is incorrect in Special Rule - example |2,2|";
constexpr std::string_view kDotsInRule =
    "A folder of a Special Rule can't be named . or .., type the folders themselves.";
constexpr std::string_view kNoRule =
    "You have selected 'Special Rule', yet you have not typed a rule.";

// ---- what is wrong with a rule; empty when nothing is ----

std::string_view ReadReplacements(SpecialRule& rule) {
    const std::string_view text = rule.text;
    std::size_t open = text.find('*');
    while (open != text.npos) {
        const std::size_t close = text.find('*', open + 1);
        if (close == text.npos) return kUnmatched;
        const auto position = text::ParseWholeNumber(text.substr(open + 1, close - open - 1));
        if (!position) return kNotNumeric;
        if (*position < 1 || *position > kHighestPosition) return kOutOfRange;
        rule.positions.push_back(*position);
        open = text.find('*', close + 1);
    }
    return {};
}

// A comma outside of bars is a letter of a name.
std::string_view ReadSearchSet(SpecialRule& rule) {
    const std::string_view text = rule.text;
    const std::size_t first = text.find('|');
    if (first == text.npos) return {};
    const std::size_t second = text.find('|', first + 1);
    const std::size_t comma = text.find(',', first + 1);
    const bool isWhole = second != text.npos && comma < second && first > 0 &&
                         text[first - 1] == '\\' &&
                         (second + 1 == text.size() || text[second + 1] == '\\');
    if (!isWhole) return kBadSearchSet;
    const auto start = text::ParseWholeNumber(text.substr(first + 1, comma - first - 1));
    const auto length = text::ParseWholeNumber(text.substr(comma + 1, second - comma - 1));
    if (!start || !length || *start < 1 || *length < 1) return kBadSearchSet;
    rule.set = SpecialRule::SearchSet{*start, *length};
    return {};
}

bool HasDots(std::string_view folder) {
    return std::ranges::any_of(text::Split(folder, '\\'), [](std::string_view name) {
        const std::string native = platform::NameToNative(name);
        return native == "." || native == "..";
    });
}

// ---- one object, step by step; false when it gets no folder ----

bool ReplaceCharacters(const SpecialRule& rule, std::string_view path, RuleResult& result) {
    for (const int position : rule.positions) {
        const std::size_t open = result.made.find('*');
        const std::size_t close =
            open == std::string::npos ? open : result.made.find('*', open + 1);
        if (close == std::string::npos) break;
        const std::string_view character = text::Mid(path, static_cast<std::size_t>(position), 1);
        if (character.empty()) {
            result.end = RuleEnd::kShortReplace;
            result.position = position;
            return false;
        }
        result.made.replace(open, close - open + 1, character);
    }
    return true;
}

bool CheckColons(RuleResult& result) {
    const std::size_t first = text::InStr(result.made, ":");
    const std::size_t second = first == 0 ? 0 : text::InStr(result.made, ":", first + 1);
    if ((first == 0 || first == 2) && second == 0) return true;
    result.end = RuleEnd::kColon;
    return false;
}

void CutAtSet(const SpecialRule& rule, std::string_view path, RuleResult& result) {
    const auto start = static_cast<std::size_t>(rule.set->start);
    const auto length = static_cast<std::size_t>(rule.set->length);
    result.end = RuleEnd::kShortSearch;
    if (start + length - 1 > text::Length(path)) return;
    result.set = text::Mid(path, start, length);
    result.end = RuleEnd::kSlashInSet;
    if (result.set.contains('\\')) return;
    result.end = RuleEnd::kSearch;
    const std::size_t open = result.folder.find('|');
    const std::size_t close = result.folder.find('|', open + 1);
    result.front = result.folder.substr(0, open);
    result.rest = result.folder.substr(close + 1);
    result.folder.clear();
}

} // namespace

std::string SpecialRule::SetText() const {
    return set ? fmt::format("|{},{}|", set->start, set->length) : std::string();
}

std::expected<SpecialRule, std::string_view> ValidateSpecialRule(std::string_view rule) {
    SpecialRule read{.text = std::string(rule), .positions = {}, .set = {}};
    std::string_view wrong = ReadReplacements(read);
    if (wrong.empty()) wrong = ReadSearchSet(read);
    if (wrong.empty() && read.positions.empty() && !read.set) wrong = kNoRule;
    if (wrong.empty() && HasDots(text::CleanSpacesInPath(rule, true))) wrong = kDotsInRule;
    if (!wrong.empty()) return std::unexpected(wrong);
    return read;
}

RuleResult SpecialRuleConvert(const SpecialRule& rule, std::string_view path) {
    RuleResult result;
    result.made = rule.text;
    if (!ReplaceCharacters(rule, path, result)) return result;
    // A replaced character may itself be a "\".
    result.hasDoubledSlash = text::Mid(result.made, 3).contains("\\\\");
    if (!CheckColons(result)) return result;
    result.folder = text::CleanSpacesInPath(result.made, true);
    if (HasDots(result.folder)) {
        result.end = RuleEnd::kDots;
        return result;
    }
    if (rule.set) CutAtSet(rule, path, result);
    return result;
}

} // namespace tarvix::actions
