#include "text/characters.h"
#include "text/like.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

using namespace tarvix::text;

namespace {

struct LikeCase {
    const char* name;
    const char* text;
    const char* pattern;
    bool matches;
};

class LikeTable : public testing::TestWithParam<LikeCase> {};

TEST_P(LikeTable, Holds) {
    const LikeCase& row = GetParam();
    EXPECT_EQ(Like(row.text, row.pattern), row.matches) << row.text << " like " << row.pattern;
}

constexpr LikeCase kRows[] = {
    {"both_empty", "", "", true},
    {"empty_pattern", "a", "", false},
    {"star_takes_empty", "", "*", true},
    {"star_takes_all", "anything", "*", true},
    {"star_takes_other_letters", "日本", "*", true},
    {"two_stars", "", "**", true},
    {"exact", "abc", "abc", true},
    {"exact_case_differs", "abc", "aBc", false},
    {"exact_longer_text", "abcd", "abc", false},
    {"exact_shorter_text", "ab", "abc", false},
    {"suffix", "song.mp3", "*.mp3", true},
    {"suffix_alone", ".mp3", "*.mp3", true},
    {"suffix_twice", ".mp3.mp3", "*.mp3", true},
    {"suffix_misses", "song.mp4", "*.mp3", false},
    {"prefix", "song.mp3", "song*", true},
    {"prefix_misses", "a song.mp3", "song*", false},
    {"middle", "C:\\$recycle.bin", "*recyc*", true},
    {"middle_misses", "C:\\music", "*recyc*", false},
    {"prefix_and_suffix_may_not_overlap", "aba", "ab*ba", false},
    {"prefix_and_suffix_touch", "abba", "ab*ba", true},
    {"star_gives_back", "aXbXc", "a*X*c", true},
    {"star_gives_back_at_end", "aab", "*ab", true},
    {"several_stars", "mississippi", "m*iss*ip*i", true},
    {"several_stars_miss", "mississippi", "m*issip*ss*i", false},
    {"question_is_one", "abc", "a?c", true},
    {"question_is_not_none", "ac", "a?c", false},
    {"question_takes_a_wide_character", "a€c", "a?c", true},
    {"question_takes_a_bad_byte",
     "a\xFF"
     "c",
     "a?c", true},
    {"questions_and_star", "abc", "?*?", true},
    {"questions_and_star_too_short", "a", "?*?", false},
    {"digit", "a7", "a#", true},
    {"digit_not_a_letter", "ax", "a#", false},
    {"digit_not_another_script", "a\u0667", "a#", false},
    {"year_month", "1999-07", "####?##", true},
    {"braced_year", "{1999}.", "{####}.", true},
    {"short_name", "LONGNA~1.TXT", "??????~?.???", true},
    {"short_name_long_extension", "LONGNA~1.TEXT", "??????~?.???", false},
    {"recycler", "C:\\RECYCLER", "?:\\RECYCLER", true},
    {"recycler_on_a_share", "\\\\pc\\d\\RECYCLER", "\\\\*RECYCLER", true},
    {"net_hood", "C:\\Users\\a\\NetHood\\x\\y", "?:*\\NetHood\\*\\*", true},
    {"class", "b", "[abc]", true},
    {"class_misses", "d", "[abc]", false},
    {"class_is_one_character", "ab", "[abc]", false},
    {"range", "m", "[a-z]", true},
    {"range_ends", "z", "[a-z]", true},
    {"range_misses", "M", "[a-z]", false},
    {"two_ranges", "Q", "[a-zA-Z]", true},
    {"range_of_wide_characters", "д", "[а-я]", true},
    {"range_of_wide_characters_misses", "z", "[а-я]", false},
    {"range_across", "é", "[a-я]", true},
    {"negated", "d", "[!abc]", true},
    {"negated_misses", "a", "[!abc]", false},
    {"negated_takes_one", "", "[!abc]", false},
    {"negated_range", "5", "[!a-z]", true},
    {"negated_wide", "ж", "[!abc]", true},
    {"lone_bang", "!", "[!]", true},
    {"lone_bang_misses", "a", "[!]", false},
    {"bang_behind_front", "!", "[a!]", true},
    {"bang_outside", "a!", "a!", true},
    {"dash_in_front", "-", "[-a]", true},
    {"dash_at_end", "-", "[a-]", true},
    {"dash_alone", "-", "[-]", true},
    {"dash_negated", "-", "[!-a]", false},
    {"dash_behind_range", "-", "[a-c-e]", true},
    {"dash_behind_range_is_no_range", "d", "[a-c-e]", false},
    {"two_dashes_in_front_are_no_range", "A", "[--a]", false},
    {"dash_outside", "a-b", "a-b", true},
    {"wildcards_in_a_class", "*", "[*?#]", true},
    {"wildcards_in_a_class_are_themselves", "7", "[*?#]", false},
    {"open_bracket_in_a_class", "[", "[[]", true},
    {"escaped_bracket_name", "[7] x", "[[]7] x", true},
    {"close_bracket_outside", "a]", "a]", true},
    {"close_bracket_cannot_be_member", "x]", "[x]]", true},
    {"empty_class_is_nothing", "ab", "a[]b", true},
    {"empty_class_takes_no_character", "axb", "a[]b", false},
    {"empty_class_alone", "", "[]", true},
    {"empty_class_then_text", "abc]", "[]abc]", true},
    {"unterminated", "[abc", "[abc", false},
    {"unterminated_behind_star", "abc", "*[", false},
    {"unterminated_negation", "!", "[!", false},
    {"backward_range", "m", "[z-a]", false},
    {"backward_range_matches_not_even_its_ends", "z", "[z-a]", false},
    {"class_behind_star", "track 5x", "*[0-9]?", true},
    {"wide_suffix", "a日本", "*日本", true},
    {"wide_suffix_repeats", "日本日本", "*日本", true},
    {"wide_middle", "x日本y", "*日*", true},
    {"wide_misses", "x日y", "*本*", false},
    {"wide_pattern_ascii_text", "abc", "*é*", false},
    {"cut_character_is_no_suffix", "\xC3\xA9", "*\xA9", false},
    {"both_slashes_are_themselves", "a\\b/c", "a\\b/c", true},
};

INSTANTIATE_TEST_SUITE_P(Rows, LikeTable, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

struct NoCaseCase {
    const char* text;
    const char* pattern;
    bool matches;
};

TEST(LikeNoCase, ComparesUpperForms) {
    constexpr NoCaseCase rows[] = {
        {"Song.MP3", "*.mp3", true},
        {"song.mp3", "SONG*", true},
        {"C:\\$Recycle.bin", "?:\\$RECYCLE.BIN", true},
        {"ÄRGER", "är*", true},
        {"ärger", "*GER", true},
        {"m", "[A-Z]", true},
        {"M", "[a-z]", true},
        {"_", "[Z-a]", false},
        {"ж", "[А-Я]", true},
        {"1999jan", "####JAN", true},
        {"song.mp4", "*.MP3", false},
    };
    for (const NoCaseCase& row : rows) {
        EXPECT_EQ(LikeNoCase(row.text, row.pattern), row.matches) << row.text << " " << row.pattern;
    }
}

TEST(LikePattern, TellsABadPattern) {
    EXPECT_TRUE(LikePattern("a[b").IsBad());
    EXPECT_TRUE(LikePattern("[b-a]").IsBad());
    EXPECT_FALSE(LikePattern("[]").IsBad());
    EXPECT_FALSE(LikePattern("a]").IsBad());
}

TEST(LikePattern, NothingButStarsTakesEverything) {
    for (const char* pattern : {"*", "**", "*[]*"}) {
        for (const char* text : {"", "a", "été", "\xFF"})
            EXPECT_TRUE(LikePattern(pattern).Matches(text)) << pattern;
    }
    EXPECT_FALSE(LikePattern("*[").Matches("a"));
    EXPECT_FALSE(LikePattern("").Matches("a"));
    EXPECT_FALSE(LikePattern("*?").Matches(""));
}

TEST(LikePattern, ManyStarsStayLinear) {
    const std::string text = Repeat("a", 20000);
    EXPECT_FALSE(Like(text, Repeat("*a", 30) + "*b"));
    EXPECT_FALSE(Like(text + "é", Repeat("*a", 30) + "*b"));
}

TEST(LikePattern, ViewWithoutMemoryIsEmpty) {
    EXPECT_TRUE(Like(std::string_view(), ""));
    EXPECT_TRUE(Like(std::string_view(), "**"));
    EXPECT_FALSE(Like(std::string_view(), "?"));
}

TEST(EscapeLikeChars, TakesBracketAndHashLiterally) {
    EXPECT_EQ(EscapeLikeChars("a[1]#?*"), "a[[]1][#]?*");
    EXPECT_TRUE(Like("a[1]#x", EscapeLikeChars("a[1]#?*")));
    EXPECT_FALSE(Like("a15x", EscapeLikeChars("a[1]#?*")));
}

// The rules read straight from the pattern, one character at a time, trying every way.
class PlainLike {
  public:
    static bool Matches(const std::string& text, const std::string& pattern) {
        const std::u32string p = Characters(pattern);
        return !IsBad(p) && Rest(Characters(text), p);
    }

  private:
    static std::u32string Characters(const std::string& s) {
        std::u32string out;
        for (std::size_t pos = 0; pos < s.size();) {
            out += NextCharacter(s, pos);
        }
        return out;
    }

    static bool IsBad(std::u32string_view p) {
        for (std::size_t i = 0; i < p.size(); ++i) {
            if (p[i] != U'[') continue;
            const std::size_t close = p.find(U']', i);
            if (close == p.npos || !InClass(p.substr(i + 1, close - i - 1), U'x')) return true;
            i = close;
        }
        return false;
    }

    static bool Rest(std::u32string_view t, std::u32string_view p) {
        if (p.empty()) return t.empty();
        if (p[0] == U'*') return Rest(t, p.substr(1)) || (!t.empty() && Rest(t.substr(1), p));
        if (p.starts_with(U"[]")) return Rest(t, p.substr(2));
        if (t.empty()) return false;
        if (p[0] == U'[') {
            const std::size_t close = p.find(U']');
            return *InClass(p.substr(1, close - 1), t[0]) && Rest(t.substr(1), p.substr(close + 1));
        }
        const bool fits = p[0] == U'?' || (p[0] == U'#' && t[0] >= U'0' && t[0] <= U'9') ||
                          (p[0] != U'#' && p[0] == t[0]);
        return fits && Rest(t.substr(1), p.substr(1));
    }

    // Empty for a range that runs backward.
    static std::optional<bool> InClass(std::u32string_view m, char32_t c) {
        const bool negated = m.size() > 1 && m[0] == U'!';
        if (negated) m.remove_prefix(1);
        bool found = false;
        for (std::size_t i = 0; i < m.size(); ++i) {
            const bool leadingDash = i == 0 && m[0] == U'-';
            if (!leadingDash && i + 2 < m.size() && m[i + 1] == U'-') {
                if (m[i] > m[i + 2]) return {};
                found = found || (c >= m[i] && c <= m[i + 2]);
                i += 2;
            } else {
                found = found || c == m[i];
            }
        }
        return found != negated;
    }
};

std::string RandomText(std::mt19937& random, const std::vector<std::string>& alphabet,
                       std::size_t longest) {
    std::string out;
    for (std::size_t count = random() % (longest + 1); count > 0; --count) {
        out += alphabet[random() % alphabet.size()];
    }
    return out;
}

void CompareWithPlainReading(const std::vector<std::string>& letters, unsigned seed) {
    std::vector<std::string> signs = letters;
    for (const char* sign : {"*", "*", "?", "#", "[", "]", "!", "-", "[ab]", "[!a]", "[a-c]"}) {
        signs.emplace_back(sign);
    }
    std::mt19937 random(seed);
    int matches = 0;
    for (int round = 0; round < 60000; ++round) {
        const std::string text = RandomText(random, letters, 7);
        const std::string pattern = RandomText(random, signs, 6);
        const bool expected = PlainLike::Matches(text, pattern);
        matches += expected ? 1 : 0;
        ASSERT_EQ(Like(text, pattern), expected) << '"' << text << "\" like \"" << pattern << '"';
    }
    EXPECT_GT(matches, 1000); // else the texts tell nothing
}

TEST(LikeProperty, AsciiTextsFollowThePlainReading) {
    CompareWithPlainReading({"a", "b", "c", "1", "-", "]"}, 1);
}

TEST(LikeProperty, OtherTextsFollowThePlainReading) {
    CompareWithPlainReading({"a", "b", "é", "1", "日", "\xC3", "\xA9"}, 2);
}

TEST(LikeProperty, IgnoringCaseEqualsUpperForms) {
    const std::vector<std::string> letters = {"a", "A", "b", "B", "1"};
    const std::vector<std::string> signs = {"a", "A", "b", "*", "?", "#", "[ab]", "[!A]"};
    const auto upper = [](std::string s) {
        for (char& c : s) {
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
        }
        return s;
    };
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        const std::string text = RandomText(random, letters, 6);
        const std::string pattern = RandomText(random, signs, 5);
        ASSERT_EQ(LikeNoCase(text, pattern), PlainLike::Matches(upper(text), upper(pattern)))
            << '"' << text << "\" like \"" << pattern << '"';
    }
}

} // namespace
