#include "cli/values.h"

#include "cli/nearest.h"
#include "cli/output_columns.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/date_words.h"
#include "text/size_words.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>

namespace tarvix::cli {

namespace {

constexpr std::int64_t kTooLarge = std::int64_t{1} << 62; // bytes; sums of two sizes are formed
constexpr text::DateTime kAnyDay{2000, 1, 1};             // words that are some stretch always are
constexpr std::string_view kAllColumns = "all";

std::unexpected<std::string> Refusal(std::string_view option, std::string_view takes,
                                     std::string_view value) {
    return std::unexpected(fmt::format("{} takes {}, not \"{}\".", option, takes, value));
}

std::string UnknownColumn(std::string_view name) {
    const std::string meant = DidYouMean(name, OutputColumnNames());
    return fmt::format("There is no column \"{}\".{}", name,
                       meant.empty() ? " tarvix-cli search --help lists them." : meant);
}

// A date stands for itself, since only words wait for the day of the search.
Read<Moment> ReadMomentAt(std::string_view option, std::string_view value, bool isEnd) {
    const auto span = text::ParseDateWords(value, kAnyDay);
    const bool isDate = text::ParseDate(value).has_value();
    if (span && isDate) return isEnd ? span->last : span->first;
    if (span) return Moment(value, isEnd);
    return Refusal(option, "a date such as 2026-11-15, \"2026-11-15 19:54:52\" or \"last 7 days\"",
                   value);
}

Read<Moment> ReadLastMoment(std::string_view option, std::string_view value) {
    return ReadMomentAt(option, value, true);
}

template <class Value>
using Reader = Read<Value> (*)(std::string_view option, std::string_view value);

template <class Value>
Read<Ends<Value>> ReadEnds(std::string_view option, std::string_view value, Reader<Value> readLow,
                           Reader<Value> readHigh) {
    const std::size_t dots = value.find("..");
    const std::string_view first = text::Trim(value.substr(0, dots));
    const std::string_view second = dots == value.npos ? "" : text::Trim(value.substr(dots + 2));
    if (first.empty() || second.empty()) {
        return Refusal(option, "two ends with \"..\" between", value);
    }
    TX_TRY_ASSIGN(auto low, readLow(option, first));
    TX_TRY_ASSIGN(auto high, readHigh(option, second));
    return Ends<Value>{low, high};
}

} // namespace

Read<std::int64_t> ReadSize(std::string_view option, std::string_view value) {
    const auto bytes = text::ParseSize(value);
    if (bytes && *bytes < kTooLarge) return *bytes;
    return Refusal(option, "a size below 4 EiB, such as 4096, 10K, 1.5M or \"2 GB\"", value);
}

Read<Ends<std::int64_t>> ReadSizeRange(std::string_view option, std::string_view value) {
    return ReadEnds<std::int64_t>(option, value, ReadSize, ReadSize);
}

Read<text::DateTime> ReadDate(std::string_view option, std::string_view value) {
    const auto date = text::ParseDate(value);
    if (date && date->HasDate()) return *date;
    return Refusal(option, "a date such as 2026-11-15 or \"2026-11-15 19:54:52\"", value);
}

Read<Moment> ReadMoment(std::string_view option, std::string_view value) {
    return ReadMomentAt(option, value, false);
}

Read<Ends<Moment>> ReadDateRange(std::string_view option, std::string_view value) {
    const bool isStretch = value.find("..") == value.npos && ReadMoment(option, value);
    if (!isStretch) return ReadEnds<Moment>(option, value, ReadMoment, ReadLastMoment);
    return Ends<Moment>{*ReadMoment(option, value), *ReadLastMoment(option, value)};
}

Read<int> ReadLevels(std::string_view option, std::string_view value) {
    constexpr int kMost = 999;
    int levels = 0;
    const char* end = value.data() + value.size();
    const auto [rest, error] = std::from_chars(value.data(), end, levels);
    const bool isNumber = error == std::errc{} && rest == end;
    if (isNumber && levels >= 1 && levels <= kMost) return levels;
    return Refusal(option, "a number of levels from 1 to 999", value);
}

Read<std::pair<char, std::string>> ReadDrive(std::string_view option, std::string_view value) {
    const std::size_t equals = std::min(value.find('='), value.size());
    const std::string letter = text::Upper(value.substr(0, equals));
    const std::string folder(value.substr(std::min(equals + 1, value.size())));
    const bool isLetter = letter.size() == 1 || (letter.size() == 2 && letter[1] == ':');
    if (isLetter && letter[0] >= 'D' && letter[0] <= 'Z' && !folder.empty()) {
        return std::pair(letter[0], folder);
    }
    return Refusal(option, "a letter from D to Z and a folder, such as E=/srv/collection", value);
}

Read<results::Column> ReadColumn(std::string_view name) {
    const auto column = FindOutputColumn(name);
    if (column && *column >= 0) return static_cast<results::Column>(*column);
    if (column) {
        return std::unexpected(
            fmt::format("{} is no column of the list: it can only be printed.", name));
    }
    return std::unexpected(UnknownColumn(name));
}

Read<std::vector<int>> ReadColumns(std::string_view, std::string_view value) {
    std::vector<int> columns;
    for (const std::string_view piece : text::Split(value, ',')) {
        const std::string_view name = text::Trim(piece);
        if (text::EqualNoCase(name, kAllColumns)) {
            std::ranges::copy(AllOutputColumns(), std::back_inserter(columns));
            continue;
        }
        const auto column = FindOutputColumn(name);
        if (!column) return std::unexpected(UnknownColumn(name));
        columns.push_back(*column);
    }
    return columns;
}

Read<SortRequest> ReadSort(std::string_view option, std::string_view value) {
    const std::size_t colon = std::min(value.find(':'), value.size());
    const std::string_view order = value.substr(colon);
    TX_TRY_ASSIGN(const auto column, ReadColumn(value.substr(0, colon)));
    const bool descending = text::EqualNoCase(order, ":desc");
    if (descending || order.empty() || text::EqualNoCase(order, ":asc")) {
        return SortRequest{column, descending};
    }
    return Refusal(option, "a column key, with \":desc\" behind it to turn the order round", value);
}

} // namespace tarvix::cli
