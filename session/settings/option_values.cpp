#include "session/settings/option_values.h"

#include "platform/try.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace tarvix::session {

namespace {

using platform::Result;

constexpr int kOverflow = 6;
constexpr int kSubscript = 9;
constexpr int kTypeMismatch = 13;
constexpr std::string_view kFolderKey = "strDefSearchFolder";

template <class... Parts>
struct Overloaded : Parts... {
    using Parts::operator()...;
};
template <class... Parts>
Overloaded(Parts...) -> Overloaded<Parts...>;

std::unexpected<platform::PlatformError> Mismatch(std::string_view text) {
    return platform::Failure(kTypeMismatch,
                             fmt::format("Type mismatch: \"{}\" is no such value.", text));
}

std::unexpected<platform::PlatformError> OutOfRange(std::string_view text) {
    return platform::Failure(kSubscript, fmt::format("Subscript out of range: \"{}\".", text));
}

Result<double> ToNumber(std::string_view text) {
    std::string_view digits = text::Trim(text);
    if (digits.starts_with('+')) digits.remove_prefix(1);
    if (digits.empty() || digits.find_first_not_of("0123456789.-+eE") != digits.npos) {
        return Mismatch(text);
    }
    double value = 0;
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, value);
    if (read.ec == std::errc::result_out_of_range) {
        return platform::Failure(kOverflow, fmt::format("Overflow: \"{}\".", text));
    }
    if (read.ec != std::errc() || read.ptr != end) return Mismatch(text);
    return value;
}

template <class Value, class Field>
Result<void> Store(const Result<Value>& value, Field& field) {
    TX_TRY_ASSIGN(field, value);
    return {};
}

std::optional<std::size_t> ColumnByName(std::string_view name) {
    const auto found = std::ranges::find(kColumnNames, name);
    if (found == kColumnNames.end() || name.empty()) return std::nullopt;
    return static_cast<std::size_t>(found - kColumnNames.begin());
}

Result<void> TakeFolder(Options& options, const OptionLine& line) {
    TX_TRY_ASSIGN(const double number, ToNumber(line.paren));
    const double index = std::nearbyint(number);
    if (index < 0 || index >= static_cast<double>(kDefaultFolderLimit)) {
        return OutOfRange(line.paren);
    }
    // The places behind the configured ones belong to the predefined folders.
    if (index >= static_cast<double>(kConfiguredFolders)) return {};
    const auto place = static_cast<std::size_t>(index);
    options.strDefSearchFolder[place] = std::string(line.folderValue);
    const bool isTitled = line.hasBracket && !text::Trim(line.folderValue).empty();
    options.strDefSearchFolderTitle[place] = isTitled ? std::string(line.title) : std::string{};
    return {};
}

Result<void> TakeColumn(Options& options, const OptionLine& line) {
    const auto column = ColumnByName(line.paren);
    if (!column) return {};
    return Store(ToBoolean(line.value), options.blnListItems[*column]);
}

std::string NumberText(float value) {
    return fmt::format("{}", value);
}

std::string BooleanText(bool value) {
    return value ? "True" : "False";
}

// A value can't run over its own line.
std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text;
}

std::vector<std::string> FolderTexts(const Options& options) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < kConfiguredFolders; ++i) {
        lines.push_back(
            OneLine(fmt::format("{}({}) = {}[{}", kFolderKey, i, options.strDefSearchFolder[i],
                                options.strDefSearchFolderTitle[i])));
    }
    return lines;
}

std::vector<std::string> ColumnTexts(const Options& options, std::string_view key) {
    std::vector<std::string> lines;
    for (const std::size_t column : kColumnFileOrder) {
        lines.push_back(fmt::format("{} ({}) = {}", key, kColumnNames[column],
                                    BooleanText(options.blnListItems[column])));
    }
    return lines;
}

} // namespace

std::size_t FindOptionKey(std::string_view key) {
    return static_cast<std::size_t>(std::ranges::find(kOptionKeys, key, &OptionKey::key) -
                                    kOptionKeys.begin());
}

Result<bool> ToBoolean(std::string_view text) {
    if (text::EqualNoCase(text, "True")) return true;
    if (text::EqualNoCase(text, "False")) return false;
    TX_TRY_ASSIGN(const double number, ToNumber(text));
    return number != 0;
}

Result<int> ToByte(std::string_view text, int most) {
    TX_TRY_ASSIGN(const double number, ToNumber(text));
    const double rounded = std::nearbyint(number);
    if (rounded < 0 || rounded > most) {
        return platform::Failure(kOverflow,
                                 fmt::format("Overflow: \"{}\" is not from 0 to {}.", text, most));
    }
    return static_cast<int>(rounded);
}

Result<float> ToSingle(std::string_view text) {
    TX_TRY_ASSIGN(const double number, ToNumber(text));
    if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
        return platform::Failure(kOverflow, fmt::format("Overflow: \"{}\".", text));
    }
    return static_cast<float>(number);
}

OptionLine SplitOptionLine(std::string_view line) {
    OptionLine split;
    const std::size_t blank = line.find(' ');
    const std::size_t equals = line.find('=');
    const std::size_t bracket = line.find('[');
    const std::size_t open = line.find('(');
    const std::size_t close = line.find(')');
    split.key = line.substr(0, blank);
    if (split.key.starts_with(kFolderKey)) split.key = kFolderKey;
    if (blank != line.npos) split.rest = line.substr(blank + 1);
    // One character is passed over, whatever it is.
    if (equals != line.npos) split.value = text::Mid(line.substr(equals + 1), 2);
    split.hasBracket = bracket != line.npos;
    if (split.hasBracket) split.title = line.substr(bracket + 1);
    if (split.hasBracket && equals < bracket) {
        split.folderValue = text::Mid(line.substr(equals + 1, bracket - equals - 1), 2);
    }
    if (open != line.npos && close != line.npos && open < close) {
        split.paren = line.substr(open + 1, close - open - 1);
    }
    return split;
}

Result<void> TakeOption(Options& options, const OptionKey& key, const OptionLine& line) {
    return std::visit(
        Overloaded{
            [&](bool Options::*field) { return Store(ToBoolean(line.value), options.*field); },
            [&](int Options::*field) {
                return Store(ToByte(line.value, key.most), options.*field);
            },
            [&](float Options::*field) { return Store(ToSingle(line.value), options.*field); },
            [&](std::string Options::*field) {
                options.*field = std::string(line.value);
                return Result<void>();
            },
            [&](FolderLines) { return TakeFolder(options, line); },
            [&](ColumnLines) { return TakeColumn(options, line); },
        },
        key.field);
}

Result<void> TakeEnvVariable(Options& options, const OptionLine& line, bool include) {
    TX_TRY_ASSIGN(const double number, ToNumber(text::Right(line.rest, 2)));
    const double index = std::nearbyint(number);
    if (index < 0 || index >= static_cast<double>(kEnvVariableLimit)) {
        return OutOfRange(text::Right(line.rest, 2));
    }
    const std::size_t length = text::Length(line.rest);
    const std::string_view name = text::Left(line.rest, length < 3 ? 0 : length - 3);
    const auto place = static_cast<std::size_t>(index);
    if (options.envVariables.size() <= place) options.envVariables.resize(place + 1);
    options.envVariables[place] = {include, std::string(name), {}};
    return {};
}

Options BlankOptions() {
    Options blank;
    for (const OptionKey& key : kOptionKeys) {
        std::visit(Overloaded{
                       [&](auto field) { blank.*field = {}; },
                       [](FolderLines) {},
                       [](ColumnLines) {},
                   },
                   key.field);
    }
    blank.blnListItems.fill(false);
    blank.blnListItems[0] = true;
    return blank;
}

void FillMissingOption(Options& options, const OptionKey& key) {
    if (std::holds_alternative<ColumnLines>(key.field)) {
        options.blnListItems = kAllColumns;
    } else if (!key.missing.empty()) {
        const OptionKey filled{key.key, key.missingField, "", key.most};
        OptionLine line;
        line.value = key.missing;
        (void)TakeOption(options, filled, line);
    }
}

std::vector<std::string> OptionLines(const Options& options, const OptionKey& key) {
    const auto one = [&key](std::string value) {
        return std::vector<std::string>{OneLine(fmt::format("{} = {}", key.key, value))};
    };
    return std::visit(Overloaded{
                          [&](bool Options::*field) { return one(BooleanText(options.*field)); },
                          [&](int Options::*field) { return one(std::to_string(options.*field)); },
                          [&](float Options::*field) { return one(NumberText(options.*field)); },
                          [&](std::string Options::*field) { return one(options.*field); },
                          [&](FolderLines) { return FolderTexts(options); },
                          [&](ColumnLines) { return ColumnTexts(options, key.key); },
                      },
                      key.field);
}

} // namespace tarvix::session
