// Holds the matcher of one pass against a slow reading of its rules, row by row and place by place.

#include "results/year_rank.h"
#include "results/year_rank_matcher.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/like.h"
#include "text/numbers.h"

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using namespace tarvix;
using results::YearRankForms;

namespace {

constexpr int kNames = 100000;

struct Row {
    Row(const std::string& rowPattern, std::string rowMask)
        : pattern(text::Upper(rowPattern)), mask(std::move(rowMask)), like(pattern),
          length(text::Length(pattern)) {}

    std::string pattern;
    std::string mask;
    text::LikePattern like;
    std::size_t length;
};

const char* const kMonthNames[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                   "jul", "aug", "sep", "oct", "nov", "dec"};

std::vector<Row> MakeRows() {
    std::vector<Row> rows = {{"########", "1234-56"}, {"####-###", "12345678"}};
    for (const std::string month : kMonthNames) {
        rows.emplace_back(month + "?####", "5678-123##");
    }
    for (const std::string month : kMonthNames) {
        rows.emplace_back("####?" + month, "1234-678##");
    }
    for (const std::string month : kMonthNames) {
        rows.emplace_back(month + "####", "4567-123##");
    }
    for (const std::string month : kMonthNames) {
        rows.emplace_back("####" + month, "1234-567##");
    }
    const std::vector<Row> rest = {
        {"{####}.", "2345"},    {"(####).", "2345"},    {" {####}", "3456"},
        {" (####)", "3456"},    {"####?##", "1234-67"}, {"##?####", "4567-12"},
        {"####?BC", "67 1234"}, {"BC?####", "12 4567"}, {"####ish", "1234567"},
        {"######", "1234-56"},  {"######", "3456-12"},  {"####BC", "56 1234"},
        {"BC####", "12 3456"},  {"###?BC", "56 0123"},  {"BC?###", "12 0456"},
        {"{####}", "2345"},     {"(####)", "2345"},     {"####?#", "1234-6"},
        {"#?####", "3456-01"},  {"####_", "1234+"},     {"####+", "1234+"},
        {"###BC", "45 0123"},   {"BC###", "12 0345"},   {"####", "1234"},
        {"###_", "123?"},       {"()", "Unknown"},      {"{}", "Unknown"},
        {"[]", "Unknown"}};
    rows.insert(rows.end(), rest.begin(), rest.end());
    return rows;
}

bool InWindow(std::string_view digits, int intMaxYear) {
    if (!text::IsAllDigits(digits)) return false;
    const int year = std::stoi(std::string(digits));
    return year > 1450 && year < intMaxYear;
}

bool Accepts(const Row& row, std::string_view candidate, std::size_t position, int intMaxYear) {
    using text::Left;
    using text::Mid;
    using text::Right;
    const std::string& p = row.pattern;
    const std::size_t length = row.length;
    const bool beginsWithHash = Left(p, 1) == "#";
    if (length >= 6 && Mid(p, 3, 4) == "####" && text::InStr(p, "BC") == 0 && !beginsWithHash) {
        if (InWindow(Mid(candidate, 3, 4), intMaxYear)) return true;
    }
    if (length >= 5 && Mid(p, 2, 4) == "####" && !beginsWithHash) {
        if (InWindow(Mid(candidate, 2, 4), intMaxYear)) return true;
    }
    if (length < 4) return !(length == 2 && position == 1);
    if (Left(p, 2) == "BC" && Left(candidate, 2) == "BC") return true;
    if (Right(p, 2) == "BC" && Right(candidate, 2) == "BC") return true;
    if (p == "######" && row.mask == "3456-12") {
        if (InWindow(Right(candidate, 4), intMaxYear)) return true;
    }
    if (p == "######" && row.mask == "1234-56") {
        if (InWindow(Left(candidate, 4), intMaxYear)) return true;
    }
    if (Right(p, 4) == "####" && InWindow(Right(candidate, 4), intMaxYear)) return true;
    if (Left(p, 4) == "####" && InWindow(Left(candidate, 4), intMaxYear)) return true;
    if (Left(p, 4) == "###_" && text::IsAllDigits(Left(candidate, 3))) {
        const int decade = std::stoi(std::string(Left(candidate, 3)));
        if (decade >= 146 && decade < std::stoi(std::to_string(intMaxYear).substr(0, 3)))
            return true;
    }
    return false;
}

std::string Rewritten(const Row& row, std::string_view piece) {
    std::string value;
    for (const char c : row.mask) {
        if (c == '#') {
            for (int month = 1; month <= 12; ++month) {
                if (text::Upper(text::Right(value, 3)) != text::Upper(kMonthNames[month - 1]))
                    continue;
                value = std::string(text::Left(value, text::Length(value) - 3)) +
                        (month < 10 ? "0" : "") + std::to_string(month);
                break;
            }
            return value;
        }
        if (c >= '1' && c <= '9') {
            value += text::Mid(piece, static_cast<std::size_t>(c - '0'), 1);
        } else {
            value += c;
        }
    }
    return value;
}

struct Found {
    int row = -1;
    std::string value;
};

// Byte offsets of all characters, and the end.
std::vector<std::size_t> CharacterOffsets(std::string_view s) {
    std::vector<std::size_t> offsets = {0};
    for (std::size_t pos = 0; pos < s.size();) {
        text::NextCharacter(s, pos);
        offsets.push_back(pos);
    }
    return offsets;
}

Found SlowExtract(std::string_view name, int intMaxYear) {
    static const std::vector<Row> rows = MakeRows();
    const std::string upper = text::Upper(name);
    const std::vector<std::size_t> offsets = CharacterOffsets(upper);
    const std::size_t length = offsets.size() - 1;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const Row& row = rows[r];
        if (row.length > length) continue;
        for (std::size_t position = length - row.length + 1; position >= 1; --position) {
            const std::size_t begin = offsets[position - 1];
            const std::string_view candidate =
                std::string_view(upper).substr(begin, offsets[position - 1 + row.length] - begin);
            if (!row.like.Matches(candidate) && candidate != row.pattern) continue;
            if (!Accepts(row, candidate, position, intMaxYear)) continue;
            return {static_cast<int>(r), Rewritten(row, text::Mid(name, position, row.length))};
        }
    }
    return {};
}

std::string FormValue(std::string_view name, YearRankForms forms) {
    using text::Like;
    const std::size_t length = text::Length(name);
    const auto inFrontOf = [&](std::size_t behind) {
        return std::string(text::Mid(name, length - behind - 8 + 1, 8));
    };
    if (Like(name, "####-###*")) return std::string(text::Left(name, 8));
    if (Like(name, "*####-###.????")) return inFrontOf(5);
    if (Like(name, "*####-###.???")) return inFrontOf(4);
    if (Like(name, "*####-###.??")) return inFrontOf(3);
    if (Like(name, "*####-###.?")) return inFrontOf(2);
    if (forms == YearRankForms::kSearch) {
        return Like(name, "*####-###") ? inFrontOf(0) : std::string();
    }
    for (const std::string separator : {" - ", " ~ "}) {
        if (!Like(name, "*" + separator + "####" + separator + "*")) continue;
        return std::string(text::Mid(name, text::InStr(name, separator) + 3, 4));
    }
    return {};
}

std::string SlowAssign(std::string_view name, std::string_view folder, int intMaxYear,
                       YearRankForms forms) {
    std::string value = FormValue(name, forms);
    if (value.empty()) value = SlowExtract(name, intMaxYear).value;
    if (value.empty()) value = SlowExtract(folder, intMaxYear).value;
    if (text::Length(value) < 4) return {};
    const std::string_view year = text::Left(value, 4);
    return !text::IsAllDigits(year) || InWindow(year, intMaxYear) ? value : std::string();
}

// Words that make every row of the table likely.
// clang-format off
constexpr std::string_view kWords[] = {
    "1987", "2045", "2046", "1450", "1451", "146", "199", "19", "05", "12", "0", "1", "2", "3",
    "5", "9", "7", "1", "042", "####", "###", "#", "?", "jan", "Feb", "MAR", "apr", "may", "jun",
    "jul", "aug", "sep", "Oct", "nov", "Dec", "BC", "bc", "ish", "(", ")", "{", "}", "[", "]",
    "()", "{}", "[]", "(", ")", " ", " ", ".", ".", "-", "-", "_", "_", "+", " - ", " ~ ", "B",
    "c", "x", "Song", "é", "日", "😀", "\u0131", "\u017F", "\xFF", "\xC3", "\x80", ".mp3",
    ".c", "-042", "1987-042", "9999-042", "-042.", "\u0131sh", "\u017Fep", " - 1987 - ",
    " ~ 1999 ~ ", "A - 日本語本", ".jpeg", ".jpegs", ".日本語",
};
// clang-format on

class RandomNames {
  public:
    std::string Next() {
        std::string name;
        for (int count = Below(7) + 1; count > 0; --count) {
            name += kWords[Below(std::size(kWords))];
        }
        return name;
    }
    int MaxYear() {
        constexpr int kYears[] = {2046, 2046, 2050, 1999, 1460, 9999};
        return kYears[Below(std::size(kYears))];
    }

  private:
    int Below(std::size_t limit) { return static_cast<int>(engine_() % limit); }

    std::mt19937 engine_{20260}; // the same names in every run
};

TEST(YearRankReference, ExtractAgreesOnRandomNames) {
    RandomNames names;
    int found = 0;
    for (int i = 0; i < kNames; ++i) {
        const std::string name = names.Next();
        const int maxYear = names.MaxYear();
        const Found expected = SlowExtract(name, maxYear);
        const auto match = results::FindYearRank(name, maxYear);
        ASSERT_EQ(match ? static_cast<int>(match->row) : -1, expected.row) << name;
        ASSERT_EQ(results::ExtractYearRank(name, maxYear), expected.value) << name;
        found += match ? 1 : 0;
    }
    EXPECT_GT(found, kNames / 4);
}

TEST(YearRankReference, AssignAgreesOnRandomNames) {
    RandomNames names;
    for (int i = 0; i < kNames / 4; ++i) {
        const std::string name = names.Next();
        const std::string folder = names.Next();
        const int maxYear = names.MaxYear();
        for (const YearRankForms forms : {YearRankForms::kSearch, YearRankForms::kPlaylist}) {
            ASSERT_EQ(results::AssignYearRank(name, folder, maxYear, forms),
                      SlowAssign(name, folder, maxYear, forms))
                << name << "\n"
                << folder;
        }
    }
}

} // namespace
