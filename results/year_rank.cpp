#include "results/year_rank.h"

#include "results/year_rank_matcher.h"
#include "results/year_rank_table.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <array>
#include <cstddef>

namespace tarvix::results {

namespace {

constexpr std::string_view kMonths[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                        "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

void ReplaceMonthName(std::string& value) {
    const std::string_view name = text::Right(value, 3);
    for (std::size_t month = 1; month <= std::size(kMonths); ++month) {
        if (!text::EqualNoCase(name, kMonths[month - 1])) continue;
        value.resize(value.size() - name.size());
        value += static_cast<char>('0' + month / 10);
        value += static_cast<char>('0' + month % 10);
        return;
    }
}

std::string Rewrite(std::string_view mask, std::string_view piece) {
    std::string value;
    for (const char c : mask) {
        if (c == '#') {
            ReplaceMonthName(value);
            break;
        }
        if (c >= '1' && c <= '9') {
            value += text::Mid(piece, static_cast<std::size_t>(c - '0'), 1);
        } else {
            value += c;
        }
    }
    return value;
}

constexpr std::size_t kRankFormLength = 8;

// "####-###"
bool IsRankForm(std::string_view s) {
    return s.size() == kRankFormLength && s[4] == '-' && text::IsAllDigits(s.substr(0, 4)) &&
           text::IsAllDigits(s.substr(5));
}

std::string_view RankFormAtEnd(std::string_view s) {
    if (s.size() < kRankFormLength) return {};
    const std::string_view end = s.substr(s.size() - kRankFormLength);
    return IsRankForm(end) ? end : std::string_view();
}

// The name in front of each "." that has 1 to 4 characters behind it, where the rank form may end.
// No name has two of these forms, so the order of the tests doesn't matter.
std::string_view RankFormBeforeExtension(std::string_view name) {
    constexpr std::size_t kLongestExtension = 4 * 4; // bytes
    const std::size_t size = name.size();
    for (std::size_t bytes = 2; bytes <= kLongestExtension + 1 && bytes <= size; ++bytes) {
        if (name[size - bytes] != '.') continue;
        const std::string_view form = RankFormAtEnd(name.substr(0, size - bytes));
        if (!form.empty() && text::Length(name.substr(size - bytes)) <= 5) return form;
    }
    return {};
}

// " - #### - " somewhere in the name gives what follows the first " - ", be it that year or not.
std::string_view BehindFirstSeparator(std::string_view name, std::string_view separator) {
    const std::size_t first = name.find(separator);
    for (std::size_t hit = first; hit != std::string_view::npos;
         hit = name.find(separator, hit + 1)) {
        const std::string_view rest = name.substr(hit + separator.size());
        if (text::IsAllDigits(text::Left(rest, 4)) && rest.size() > 4 &&
            rest.substr(4).starts_with(separator))
            return text::Left(name.substr(first + separator.size()), 4);
    }
    return {};
}

std::string_view NameForm(std::string_view name, YearRankForms forms) {
    if (const std::string_view form = FindRankForm(name); !form.empty()) return form;
    if (forms == YearRankForms::kSearch) return RankFormAtEnd(name);
    const std::string_view year = BehindFirstSeparator(name, " - ");
    return year.empty() ? BehindFirstSeparator(name, " ~ ") : year;
}

bool IsShown(std::string_view value, int intMaxYear) {
    const std::string_view start = text::Left(value, 4);
    if (text::Length(start) < 4) return false;
    if (!text::IsAllDigits(start)) return true;
    return IsPlausibleYear(text::ParseWholeNumber(start).value_or(0), intMaxYear);
}

} // namespace

std::string ExtractYearRank(std::string_view text, int intMaxYear) {
    const auto match = FindYearRank(text, intMaxYear);
    return match ? Rewrite(kYearRankPatterns[match->row].mask, match->piece) : std::string();
}

std::string_view FindRankForm(std::string_view name) {
    const std::string_view start = name.substr(0, kRankFormLength);
    return IsRankForm(start) ? start : RankFormBeforeExtension(name);
}

std::string AssignYearRank(std::string_view name, std::string_view folder, int intMaxYear,
                           YearRankForms forms) {
    return std::string(YearRanks(intMaxYear, 1).Of(name, 0, folder, forms));
}

std::string_view YearRanks::Of(std::string_view name, std::size_t number, std::string_view folder,
                               YearRankForms forms) {
    ofName_ = NameForm(name, forms);
    if (ofName_.empty()) ofName_ = ExtractYearRank(name, intMaxYear_);
    if (!ofName_.empty()) return IsShown(ofName_, intMaxYear_) ? ofName_ : std::string_view();
    std::optional<std::string>& known = ofFolders_[number];
    if (!known) {
        known = ExtractYearRank(folder, intMaxYear_);
        if (!IsShown(*known, intMaxYear_)) known->clear();
    }
    return *known;
}

} // namespace tarvix::results
