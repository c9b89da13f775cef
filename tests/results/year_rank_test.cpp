#include "results/year_rank.h"
#include "results/year_rank_matcher.h"
#include "results/year_rank_table.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace tarvix::results;
using namespace std::string_literals;

namespace {

constexpr int kMaxYear = 2046;
constexpr int kNoRow = -1;

struct ExtractCase {
    std::string text;
    int row;
    std::string value;
};

int RowOf(std::string_view text, int intMaxYear = kMaxYear) {
    const auto match = FindYearRank(text, intMaxYear);
    return match ? static_cast<int>(match->row) : kNoRow;
}

std::string Extract(std::string_view text) {
    return ExtractYearRank(text, kMaxYear);
}

void ExpectAll(const std::vector<ExtractCase>& cases) {
    for (const ExtractCase& c : cases) {
        EXPECT_EQ(RowOf(c.text), c.row) << c.text;
        EXPECT_EQ(Extract(c.text), c.value) << c.text;
    }
}

const std::vector<ExtractCase>& Examples() {
    static const std::vector<ExtractCase> cases = {
        {"Song (1987).mp3", 51, "1987"},      {"Song 1987.mp3", 73, "1987"},
        {"1987-042 Song.mp3", 1, "1987-042"}, {"Song jan 1987.mp3", 2, "1987-01"},
        {"Song Dec-1987.mp3", 13, "1987-12"}, {"19871231.txt", 0, "1987-12"},
        {"198712 x", 59, "1987-12"},          {"1987 05 x", 54, "1987-05"},
        {"1987-5 x", 67, "1987-5"},           {"5-1987 x", 68, "1987-05"},
        {"Song 1987ish", 58, "1987ish"},      {"Song 1987_.txt", 69, "1987+"},
        {"Song 199_.txt", 74, "199?"},        {"BC1987", 62, "BC 1987"},
        {"300 BC.txt", 63, "BC 0300"},        {"x ()", 75, "Unknown"},
        {"x [].txt", 77, "Unknown"},          {"()x", kNoRow, ""},
        {"Track 2045.mp3", 73, "2045"},       {"Track 2046.mp3", kNoRow, ""},
        {"Track 1450.mp3", kNoRow, ""},
    };
    return cases;
}

// The rows that the examples leave out, but for the months.
const std::vector<ExtractCase>& OtherRows() {
    static const std::vector<ExtractCase> cases = {
        {"a{1987}.mp3", 50, "1987"},  {"a {1987}", 52, "1987"},    {"a (1987)", 53, "1987"},
        {"05 1987x", 55, "1987-05"},  {"1987 BC", 56, "BC 1987"},  {"BC 1987", 57, "BC 1987"},
        {"x 0300BC", 61, "BC 0300"},  {"BC 300", 64, "BC 0300"},   {"a{1987}", 65, "1987"},
        {"a(1987)b", 66, "1987"},     {"Song 1987+", 70, "1987+"}, {"x 300BC", 71, "BC 0300"},
        {"x BC300 y", 72, "BC 0300"}, {"x {}", 76, "Unknown"},
    };
    return cases;
}

std::vector<ExtractCase> MonthRows() {
    const char* const months[] = {"Jan", "feb", "MAR", "Apr", "may", "JUN",
                                  "Jul", "aug", "SEP", "Oct", "nov", "DEC"};
    const char* const values[] = {"1987-01", "1987-02", "1987-03", "1987-04", "1987-05", "1987-06",
                                  "1987-07", "1987-08", "1987-09", "1987-10", "1987-11", "1987-12"};
    std::vector<ExtractCase> cases;
    for (int i = 0; i < 12; ++i) {
        const std::string month = months[i];
        cases.push_back({"Song " + month + ".1987.mp3", 2 + i, values[i]});
        cases.push_back({"Song 1987 " + month + ".mp3", 14 + i, values[i]});
        cases.push_back({"Song " + month + "1987.mp3", 26 + i, values[i]});
        cases.push_back({"Song 1987" + month + ".mp3", 38 + i, values[i]});
    }
    return cases;
}

TEST(ExtractYearRank, GivesTheExamples) {
    ExpectAll(Examples());
}

TEST(ExtractYearRank, HasTheOtherRows) {
    ExpectAll(OtherRows());
}

TEST(ExtractYearRank, ReadsEveryMonthInFourForms) {
    ExpectAll(MonthRows());
}

TEST(ExtractYearRank, CasesReachEveryRowThatCanWin) {
    std::set<int> rows;
    for (const auto& cases : {Examples(), OtherRows(), MonthRows()}) {
        for (const ExtractCase& c : cases) {
            rows.insert(c.row);
        }
    }
    rows.erase(kNoRow);
    EXPECT_EQ(rows.size(), 77U);
    EXPECT_FALSE(rows.contains(60)); // row 59 takes all that it would
}

TEST(ExtractYearRank, EightDigitsCountByTheYearAtTheirEndToo) {
    ExpectAll({{"12311987.txt", 0, "1231-19"}});
}

TEST(ExtractYearRank, SixDigitsWithTheYearLastAreTakenYearFirst) {
    ExpectAll({{"121987.txt", 59, "1219-87"}});
}

TEST(ExtractYearRank, YearsBeforeChristHaveNoLimit) {
    ExpectAll({{"BC9999", 62, "BC 9999"}, {"9999 BC", 56, "BC 9999"}, {"BC000", 72, "BC 0000"}});
}

TEST(ExtractYearRank, AnyCharacterStandsBetweenYearAndMonth) {
    ExpectAll({{"1987x12", 54, "1987-12"},
               {"1987日12", 54, "1987-12"},
               {"1987\xFF"
                "12",
                54, "1987-12"},
               {"1987😀dec", 25, "1987-12"}});
}

TEST(ExtractYearRank, BracketPairThatOpensTheTextIsPassedOver) {
    ExpectAll({{"()", kNoRow, ""},
               {"x()", 75, "Unknown"},
               {"()()", 75, "Unknown"},
               {"()[]", 77, "Unknown"},
               {"[]x{}", 76, "Unknown"},
               {"é()", 75, "Unknown"},
               {"\xC3()", 75, "Unknown"}});
}

TEST(ExtractYearRank, EarlierRowBeatsALaterOneWhereverItStands) {
    ExpectAll({{"1999 Mix (1987).mp3", 51, "1987"}, {"(1987).mix 1999", 51, "1987"}});
}

TEST(ExtractYearRank, LastPlaceOfARowWins) {
    ExpectAll({{"1987 x 1999 y", 73, "1999"},
               {"a (1987) b (1999) c", 53, "1999"},
               {"1987-042 1999-001", 1, "1999-001"}});
}

TEST(ExtractYearRank, RejectedPlaceGoesOnToTheLeft) {
    ExpectAll({{"1987 x 2046 y", 73, "1987"}, {"(1987).x (1000).y", 51, "1987"}});
}

TEST(ExtractYearRank, RejectedRowGoesOnToTheNext) {
    ExpectAll({{"1987 (3000).mp3", 73, "1987"}, {"99999999 x 1987", 73, "1987"}});
}

TEST(ExtractYearRank, DigitRunsAreReadFromTheirEnd) {
    ExpectAll({{"19871299", 0, "1987-12"},
               {"90001987", 0, "9000-19"},
               {"x0001987", 55, "1987-00"},
               {"a01987x", 73, "1987"},
               {"a19870x", 73, "1987"},
               {"a19881987", 0, "1988-19"}});
}

TEST(ExtractYearRank, KeepsTheCaseOfThePiece) {
    ExpectAll(
        {{"Song 1987ISH", 58, "1987ISH"}, {"bc 300", 64, "bc 0300"}, {"300Bc", 71, "Bc 0300"}});
}

TEST(ExtractYearRank, WindowExcludesBothLimits) {
    ExpectAll({{"x 1451", 73, "1451"}, {"x 1450", kNoRow, ""}, {"x 2045", 73, "2045"}});
    EXPECT_EQ(ExtractYearRank("x 2046", 2047), "2046");
    EXPECT_EQ(ExtractYearRank("x 2045", 2045), "");
}

TEST(ExtractYearRank, DecadeIsMeasuredByTheFirstThreeDigitsOfTheLimit) {
    ExpectAll(
        {{"146_", 74, "146?"}, {"145_", kNoRow, ""}, {"203_", 74, "203?"}, {"204_", kNoRow, ""}});
    EXPECT_EQ(ExtractYearRank("204_", 2050), "204?");
}

TEST(ExtractYearRank, PatternSpelledOutIsTakenBeforeChrist) {
    ExpectAll({{"####BC", 61, "BC ####"},
               {"x bc?### y", 64, "bc 0###"},
               {"####?BC", 56, "BC ####"},
               {"####xBC", kNoRow, ""},
               {"12##BC", kNoRow, ""},
               {"####", kNoRow, ""},
               {" (####).", kNoRow, ""}});
}

TEST(ExtractYearRank, LettersWithAnAsciiUpperCaseAreThoseLetters) {
    ExpectAll({{"1987\u0131\u017Fh", 58, "1987\u0131\u017Fh"}, {"\u017Fep 1987", 10, "1987-09"}});
}

TEST(ExtractYearRank, DigitsOfOtherScriptsAreNoDigits) {
    ExpectAll({{"１９８７", kNoRow, ""}, {"١٩٨٧", kNoRow, ""}});
}

TEST(ExtractYearRank, UnusableTextGivesNothing) {
    ExpectAll({{"", kNoRow, ""},
               {"\0"s, kNoRow, ""},
               {"\0\0\0\0 1987"s, 73, "1987"},
               {"198\0007"s, kNoRow, ""},
               {"\x80\x80\x80\x80\x80", kNoRow, ""},
               {"\xF0\x9F 1987 \xE3", 73, "1987"},
               {"99", kNoRow, ""},
               {std::string(100000, '9'), kNoRow, ""}});
}

TEST(ExtractYearRank, ValueNeedsNoMemoryOfItsOwn) {
    for (const auto& cases : {Examples(), OtherRows(), MonthRows()}) {
        for (const ExtractCase& c : cases) {
            EXPECT_EQ(Extract(c.text).capacity(), std::string().capacity()) << c.text;
        }
    }
}

TEST(FindRankForm, FindsTheFiveForms) {
    for (const char* name :
         {"1987-042", "1987-042 Song.mp3", "1987-0421", "Song 1987-042.jpeg", "Song 1987-042.mp3",
          "Song 1987-042.gz", "Song 1987-042.c", "Song 1987-042.a.b", "Song 1987-042.日本語本",
          "Song 1987-042.😀😀😀😀", "x1987-042. "}) {
        EXPECT_EQ(FindRankForm(name), "1987-042") << name;
    }
}

TEST(FindRankForm, TakesNothingElse) {
    for (const char* name : {"", "1987-04", "1987 042 Song", "Song 1987-042", "Song 1987-042.",
                             "Song 1987-042.jpegs", "Song 1987-042 .mp3", "Song 1987-04x.mp3",
                             "Song 1987-042.日本語本日", "Song 1987-042_mp3"}) {
        EXPECT_EQ(FindRankForm(name), "") << name;
    }
}

TEST(FindRankForm, StartOfTheNameComesFirst) {
    EXPECT_EQ(FindRankForm("1987-042 and 1999-001.mp3"), "1987-042");
}

struct AssignCase {
    const char* name;
    const char* folder;
    const char* value;
};

void ExpectAssigned(YearRankForms forms, const std::vector<AssignCase>& cases) {
    for (const AssignCase& c : cases) {
        EXPECT_EQ(AssignYearRank(c.name, c.folder, kMaxYear, forms), c.value) << c.name;
    }
}

void ExpectAssigned(const std::vector<AssignCase>& cases) {
    ExpectAssigned(YearRankForms::kSearch, cases);
}

TEST(AssignYearRank, RankFormOfTheNameDecides) {
    ExpectAssigned({{"1987-042 Song (1999).mp3", "C:\\Music", "1987-042"},
                    {"Song (1999).x 1987-042.mp3", "C:\\Music", "1987-042"},
                    {"Song (1999).x 1987-042", "C:\\Music", "1987-042"}});
}

TEST(AssignYearRank, ImplausibleRankFormLeavesTheColumnEmpty) {
    ExpectAssigned({{"9999-042 Song (1987).mp3", "C:\\1990", ""},
                    {"Song (1987).x 9999-042.jpeg", "C:\\1990", ""},
                    {"Song (1987).x 9999-042", "C:\\1990", ""},
                    {"2046-001.mp3", "C:\\1990", ""},
                    {"1450-001.mp3", "C:\\1990", ""}});
}

TEST(AssignYearRank, FolderIsAskedWhenTheNameHasNoDate) {
    ExpectAssigned({{"Song.mp3", "C:\\Music (1990)\\Disc (1991)", "1991"},
                    {"Song 9999-042.jpegs", "C:\\Music 1990\\x", "1990"},
                    {"()", "C:\\1990", "1990"},
                    {"Song.mp3", "C:\\Music", ""},
                    {"Song.mp3", "", ""}});
}

TEST(AssignYearRank, ImplausibleValueOfTheNameDoesNotGoBackToTheFolder) {
    ExpectAssigned({{"12311987.txt", "C:\\1990", ""}, {"121987.txt", "C:\\1990", ""}});
}

TEST(AssignYearRank, ValueThatIsNoYearIsShownAsItStands) {
    ExpectAssigned({{"300 BC.txt", "C:\\1990", "BC 0300"},
                    {"Song 199_.txt", "C:\\1990", "199?"},
                    {"Song ().mp3", "C:\\1990", "Unknown"}});
}

TEST(AssignYearRank, PlaylistLeavesOutTheBareEnd) {
    ExpectAssigned(YearRankForms::kPlaylist, {{"Song 9999-042", "C:\\1990", "1990"},
                                              {"Song 9999-042.mp3", "C:\\1990", ""},
                                              {"Song 1987-042", "C:\\1990", "1987-042"}});
}

TEST(AssignYearRank, PlaylistReadsAYearBetweenDashesOrTildes) {
    ExpectAssigned(YearRankForms::kPlaylist, {{"Band - 1987 - Song (1999).mp3", "", "1987"},
                                              {"Band ~ 1987 ~ Song (1999).mp3", "", "1987"},
                                              {" - 1987 - ", "", "1987"},
                                              {"Band - 2046 - Song (1999).mp3", "C:\\1990", ""},
                                              {"Band - 1987 ~ Song (1999).mp3", "", "1999"},
                                              {"Band - 198 - Song (1999).mp3", "", "1999"},
                                              {"Band - 19877 - Song (1999).mp3", "", "1999"}});
    ExpectAssigned({{"Band - 1987 - Song (1999).mp3", "", "1999"}});
}

TEST(AssignYearRank, PlaylistDashesComeBeforeTildes) {
    ExpectAssigned(YearRankForms::kPlaylist, {{"A ~ 1987 ~ B - 1999 - C", "", "1999"}});
}

TEST(AssignYearRank, PlaylistTakesWhatStandsBehindTheFirstSeparator) {
    ExpectAssigned(YearRankForms::kPlaylist, {{"A - B - 1987 - C.mp3", "", "B - "},
                                              {"A - 日本語本日 - 1987 - C.mp3", "", "日本語本"},
                                              {"A - - 1987 - C.mp3", "", "- 19"},
                                              {"A - 1234x - 1987 - C.mp3", "", ""}});
}

} // namespace
