#include "text/characters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using namespace tarvix::text;
using testing::ElementsAre;
using namespace std::string_literals;

namespace {

struct LengthCase {
    const char* name;
    std::string text;
    std::size_t length;
};

class LengthOf : public testing::TestWithParam<LengthCase> {};

TEST_P(LengthOf, CountsCharacters) {
    EXPECT_EQ(Length(GetParam().text), GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(Texts, LengthOf,
                         testing::Values(LengthCase{"empty", "", 0}, LengthCase{"ascii", "abc", 3},
                                         LengthCase{"more_than_a_word", "abcdefghijklmnopq", 17},
                                         LengthCase{"two_bytes", "é", 1},
                                         LengthCase{"three_bytes", "€", 1},
                                         LengthCase{"four_bytes", "😀", 1},
                                         LengthCase{"behind_a_word", "abcdefgh€x", 10},
                                         LengthCase{"lone_continuation", "a\x80z", 3},
                                         LengthCase{"cut_off_character", "a\xE2\x82", 3},
                                         LengthCase{"overlong_slash", "\xC0\xAF", 2},
                                         LengthCase{"overlong_three", "\xE0\x80\xAF", 3},
                                         LengthCase{"surrogate", "\xED\xA0\x80", 3},
                                         LengthCase{"beyond_unicode", "\xF4\x90\x80\x80", 4},
                                         LengthCase{"last_code_point", "\xF4\x8F\xBF\xBF", 1},
                                         LengthCase{"null_inside", "a\0b"s, 3},
                                         LengthCase{"all_bad", "\xFF\xFE\xFF", 3}),
                         [](const auto& row) { return row.param.name; });

TEST(Left, TakesCharactersNotBytes) {
    EXPECT_EQ(Left("äöü", 2), "äö");
    EXPECT_EQ(Left("äöü", 0), "");
    EXPECT_EQ(Left("äöü", 3), "äöü");
    EXPECT_EQ(Left("äöü", 99), "äöü");
}

TEST(Right, TakesCharactersNotBytes) {
    EXPECT_EQ(Right("äöü", 2), "öü");
    EXPECT_EQ(Right("äöü", 0), "");
    EXPECT_EQ(Right("äöü", 99), "äöü");
    EXPECT_EQ(Right("abcdefghijkl", 3), "jkl");
}

TEST(Mid, CountsFromOne) {
    EXPECT_EQ(Mid("a€b😀c", 2, 3), "€b😀");
    EXPECT_EQ(Mid("a€b😀c", 4), "😀c");
    EXPECT_EQ(Mid("abc", 1, 0), "");
    EXPECT_EQ(Mid("abc", 3, 9), "c");
}

TEST(Mid, StartPastTheEndGivesNothing) {
    EXPECT_EQ(Mid("abc", 4), "");
    EXPECT_EQ(Mid("abc", 400, 5), "");
    EXPECT_EQ(Mid("", 1), "");
}

TEST(Mid, StartZeroIsTakenAsOne) {
    EXPECT_EQ(Mid("abc", 0, 2), "ab");
}

TEST(InStr, GivesCharacterPositions) {
    EXPECT_EQ(InStr("äöü\\x", "\\"), 4U);
    EXPECT_EQ(InStr("äöüä", "ä", 2), 4U);
    EXPECT_EQ(InStr("abcabc", "abc", 1), 1U);
    EXPECT_EQ(InStr("abcabc", "abc", 2), 4U);
}

TEST(InStr, ZeroWhenAbsent) {
    EXPECT_EQ(InStr("abc", "x"), 0U);
    EXPECT_EQ(InStr("abc", "a", 2), 0U);
    EXPECT_EQ(InStr("abc", "c", 9), 0U);
    EXPECT_EQ(InStr("", "a"), 0U);
}

TEST(InStr, EmptyTextIsFoundAtTheStart) {
    EXPECT_EQ(InStr("abc", ""), 1U);
    EXPECT_EQ(InStr("abc", "", 3), 3U);
    EXPECT_EQ(InStr("abc", "", 4), 0U);
}

TEST(InStrRev, GivesTheLastHit) {
    EXPECT_EQ(InStrRev("ä\\ö\\ü", "\\"), 4U);
    EXPECT_EQ(InStrRev("abc", "x"), 0U);
    EXPECT_EQ(InStrRev("äbc", ""), 3U);
    EXPECT_EQ(InStrRev("", "a"), 0U);
}

TEST(Trim, TakesOnlyBlanks) {
    EXPECT_EQ(LTrim("  a "), "a ");
    EXPECT_EQ(RTrim("  a "), "  a");
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("\t a\u00A0"), "\t a\u00A0");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(LTrim("   "), "");
    EXPECT_EQ(RTrim(""), "");
}

TEST(Replace, EveryHitFromLeftToRight) {
    EXPECT_EQ(Replace("a.b.c", ".", "--"), "a--b--c");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("abc", "b", ""), "ac");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_EQ(Replace("aa", "a", "aa"), "aaaa");
    EXPECT_EQ(Replace("", "a", "b"), "");
}

TEST(Split, KeepsEmptyPieces) {
    EXPECT_THAT(Split("a|b", '|'), ElementsAre("a", "b"));
    EXPECT_THAT(Split("|a||", '|'), ElementsAre("", "a", "", ""));
    EXPECT_THAT(Split("", '|'), ElementsAre(""));
}

TEST(Repeat, JoinsCopies) {
    EXPECT_EQ(Repeat("ab", 3), "ababab");
    EXPECT_EQ(Repeat("ab", 0), "");
    EXPECT_EQ(Repeat("", 9), "");
}

TEST(IsValidUtf8, TellsBadBytes) {
    EXPECT_TRUE(IsValidUtf8(""));
    EXPECT_TRUE(IsValidUtf8("abcdefghij€😀"));
    EXPECT_FALSE(IsValidUtf8("abcdefghij\xE4"));
    EXPECT_FALSE(IsValidUtf8("\xC0\x80"));
    EXPECT_FALSE(IsValidUtf8("\xED\xBF\xBF"));
    EXPECT_FALSE(IsValidUtf8("\x80"));
}

TEST(IsValidUtf8, FindsABadByteAtEachPlace) {
    for (std::size_t size = 1; size < 20; ++size) {
        for (std::size_t at = 0; at < size; ++at) {
            std::string text(size, 'a');
            text[at] = '\xE4';
            ASSERT_FALSE(IsValidUtf8(text)) << at << " of " << size;
            ASSERT_FALSE(IsAscii(text)) << at << " of " << size;
            text.replace(at, 1, "ä");
            ASSERT_TRUE(IsValidUtf8(text)) << at << " of " << size;
            ASSERT_FALSE(IsAscii(text)) << at << " of " << size;
        }
    }
}

TEST(IsAscii, LooksAtEveryByte) {
    EXPECT_TRUE(IsAscii(""));
    EXPECT_TRUE(IsAscii("0123456789"));
    EXPECT_FALSE(IsAscii("01234567890é"));
    EXPECT_FALSE(IsAscii("é1234567890"));
}

TEST(DecodeOne, GivesBytesAndCodePoint) {
    char32_t c = 0;
    EXPECT_EQ(DecodeOne("a", c), 1U);
    EXPECT_EQ(c, U'a');
    EXPECT_EQ(DecodeOne("😀x", c), 4U);
    EXPECT_EQ(c, U'😀');
    EXPECT_EQ(DecodeOne("\xE2\x82", c), 1U);
    EXPECT_EQ(c, U'\uFFFD');
    EXPECT_EQ(DecodeOne("", c), 0U);
}

TEST(AppendUtf8, WritesEachLength) {
    std::string out;
    for (const char32_t c : {U'a', U'é', U'€', U'😀'}) {
        AppendUtf8(out, c);
    }
    EXPECT_EQ(out, "aé€😀");
}

TEST(AppendUtf8, SurrogatesBecomeTheReplacement) {
    std::string out;
    AppendUtf8(out, 0xD800);
    AppendUtf8(out, 0x7FFFFFFF);
    EXPECT_EQ(out, "\uFFFD\uFFFD");
}

TEST(NextCharacter, BadBytesComeBackAsTheyWere) {
    const std::string text = "a\xFFé\xE2\x82z\x80";
    std::string out;
    for (std::size_t pos = 0; pos < text.size();) {
        AppendUtf8(out, NextCharacter(text, pos));
    }
    EXPECT_EQ(out, text);
}

TEST(Concat, PutsAllPartsBehindEachOther) {
    EXPECT_EQ(Concat({}), "");
    EXPECT_EQ(Concat({""}), "");
    EXPECT_EQ(Concat({"a"}), "a");
    EXPECT_EQ(Concat({"", "ab", "", "c", ""}), "abc");
    EXPECT_EQ(Concat({"\u00E9", "\xFF", "\u20AC"}), "\u00E9\xFF\u20AC");
}

TEST(Concat, TakesZeroBytesAndPartsOfTexts) {
    const std::string whole = "0123456789";
    const std::string_view view = whole;
    EXPECT_EQ(Concat({view.substr(2, 3), "\0x"s, view.substr(10), view}), "234\0x0123456789"s);
}

} // namespace
