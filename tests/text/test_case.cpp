#include "text/case.h"
#include "text/characters.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace tarvix::text;

namespace {

TEST(Upper, MapsOneToOne) {
    EXPECT_EQ(Upper("abcxyz{`@[09"), "ABCXYZ{`@[09");
    EXPECT_EQ(Upper("äöü éñ"), "ÄÖÜ ÉÑ");
    EXPECT_EQ(Upper("жαÿ"), "ЖΑŸ");
    EXPECT_EQ(Upper("日本"), "日本");
    EXPECT_EQ(Upper(""), "");
}

// Each ASCII character at each place among eight and behind them.
TEST(Upper, TurnsLettersAloneWhereverTheyStand) {
    for (int c = 0; c < 128; ++c) {
        const bool isSmall = c >= 'a' && c <= 'z';
        const bool isCapital = c >= 'A' && c <= 'Z';
        for (std::size_t at = 0; at < 11; ++at) {
            std::string text = "0[z{`Z@~y1a";
            std::string upper = "0[Z{`Z@~Y1A";
            std::string lower = "0[z{`z@~y1a";
            text[at] = static_cast<char>(c);
            upper[at] = static_cast<char>(isSmall ? c - 32 : c);
            lower[at] = static_cast<char>(isCapital ? c + 32 : c);
            ASSERT_EQ(Upper(text), upper) << c << " at " << at;
            ASSERT_EQ(Lower(text), lower) << c << " at " << at;
        }
    }
}

// Each of them between letters of its own kind, so that none is taken for a part of another.
TEST(Upper, TurnsLatinLetters) {
    EXPECT_EQ(Upper("\u00AA\u00B5\u00BA\u00BF aàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿz"),
              "\u00AA\u039C\u00BA\u00BF AÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ÷ØÙÚÛÜÝÞŸZ");
    EXPECT_EQ(Upper("ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"), "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß");
    EXPECT_EQ(Lower("\u00AA\u00B5\u00BF AÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßZ"),
              "\u00AA\u00B5\u00BF aàáâãäåæçèéêëìíîïðñòóôõö×øùúûüýþßz");
    EXPECT_EQ(Lower("àáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ"), "àáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ");
    EXPECT_EQ(Upper("āłőžάωяё"), "ĀŁŐŽΆΩЯЁ");
}

TEST(Upper, TheOtherCaseMayTakeMoreOrFewerBytes) {
    EXPECT_EQ(Upper("a\u0131b\u017Fc"), "AIBSC");
    EXPECT_EQ(Upper("\u0250\u023Fé\u0250"), "\u2C6F\u2C7EÉ\u2C6F");
    EXPECT_EQ(Upper("ab\u1D79cd"), "AB\uA77DCD");
    EXPECT_EQ(Lower("A\u212AB\u2126C\u212B"), "akbωcå");
    EXPECT_EQ(Lower("\u1E9E\u2C6Fx"), "\u00DF\u0250x");
}

TEST(Upper, SharpSStays) {
    EXPECT_EQ(Upper("Straße"), "STRAßE");
}

TEST(Upper, KeepsInvalidBytes) {
    EXPECT_EQ(Upper("a\xFF\xE2\x82z"), "A\xFF\xE2\x82Z");
    EXPECT_EQ(Upper("\xC3\xC3\xA9\xC3z\xA9\xE9"), "\xC3\xC3\x89\xC3Z\xA9\xE9");
    EXPECT_EQ(Upper("abcdefg\xE1hijklmno\xFA"), "ABCDEFG\xE1HIJKLMNO\xFA");
    EXPECT_EQ(Lower("\xC3\xE3Z\xC3\x89\x89"), "\xC3\xE3z\xC3\xA9\x89");
    EXPECT_EQ(Upper("a\xC3"), "A\xC3");
}

TEST(Lower, MapsOneToOne) {
    EXPECT_EQ(Lower("ABCXYZ{`@[09"), "abcxyz{`@[09");
    EXPECT_EQ(Lower("ÄÖÜ ÉÑ ЖΑŸ"), "äöü éñ жαÿ");
    EXPECT_EQ(Lower("A\xC3"), "a\xC3");
}

TEST(AppendUpper, AddsBehindWhatIsThere) {
    std::string out = "abc ";
    AppendUpper(out, "déf");
    EXPECT_EQ(out, "abc DÉF");
}

TEST(EqualNoCase, ComparesUpperForms) {
    EXPECT_TRUE(EqualNoCase("Music\\Ärger", "MUSIC\\ärger"));
    EXPECT_TRUE(EqualNoCase("", ""));
    EXPECT_FALSE(EqualNoCase("abc", "ab"));
    EXPECT_FALSE(EqualNoCase("é", "e"));
}

TEST(EqualNoCase, DifferentBadBytesDiffer) {
    EXPECT_TRUE(EqualNoCase("a\xFF", "A\xFF"));
    EXPECT_FALSE(EqualNoCase("a\xFF", "a\xFE"));
    EXPECT_FALSE(EqualNoCase("a\xFF", "a\uFFFD"));
}

TEST(CompareNoCase, OrdersByUpperCodePoints) {
    EXPECT_EQ(CompareNoCase("abc", "ABC"), 0);
    EXPECT_LT(CompareNoCase("abc", "abd"), 0);
    EXPECT_GT(CompareNoCase("b", "ABC"), 0);
    EXPECT_LT(CompareNoCase("ab", "abc"), 0);
    EXPECT_GT(CompareNoCase("abc", "AB"), 0);
    EXPECT_GT(CompareNoCase("_", "a"), 0); // "_" lies behind "A"
    EXPECT_LT(CompareNoCase("z", "é"), 0);
    EXPECT_LT(CompareNoCase("\uFFFD", "😀"), 0);
}

// The order as it is told: character by character of the upper-case forms.
int PlainOrder(std::string_view a, std::string_view b) {
    const auto characters = [](const std::string& upper) {
        std::vector<char32_t> all;
        for (std::size_t pos = 0; pos < upper.size();)
            all.push_back(NextCharacter(upper, pos));
        return all;
    };
    const auto left = characters(Upper(a));
    const auto right = characters(Upper(b));
    return left < right ? -1 : right < left ? 1 : 0;
}

int Sign(int order) {
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

TEST(CompareNoCase, CharactersThatShareTheirFirstBytes) {
    constexpr struct {
        const char* a;
        const char* b;
        int order;
    } rows[] = {
        {"\u00E9", "\u00E8", 1},         // C3 A9, C3 A8
        {"\u00C9", "\u00E9", 0},         // C3 89, C3 A9
        {"\u00C9", "\u00E8", 1},         // upper-case forms C9 and C8
        {"\u00FF", "\u00FE", 1},         // upper-case forms 178 and DE
        {"\u2C00", "\u2C30", 0},         // E2 B0 80, E2 B0 B0
        {"\u20AC", "\u20AD", -1},        // E2 82 AC, E2 82 AD
        {"\U00010400", "\U00010428", 0}, // F0 90 90 80, F0 90 90 A8
        {"\U0001F600", "\U0001F601", -1},
        {"\U0001F600", "\U0001F3B5", 1},
        {"\xE2\x82", "\u20AC", 1}, // bad bytes lie behind all characters
        {"\xC3", "\u00E9", 1},
        {"\u00E9\x80", "\u00E9\x81", -1},
        {"\x80\x80", "\x80\x81", -1},
        {"\xF0\x9F\x98", "\xF0\x9F\x99", -1},
        {"\u00E9", "\u00E9\x80", -1},
    };
    for (const auto& row : rows) {
        for (const std::size_t front : {0U, 1U, 5U, 6U, 7U, 8U, 9U, 15U, 16U}) {
            for (const char* behind : {"", "x", "12345678"}) {
                const std::string a = std::string(front, 'x') + row.a + behind;
                const std::string b = std::string(front, 'X') + row.b + behind;
                const std::string c = std::string(front, 'x') + row.b + behind;
                // What stands behind decides nothing unless one text ends.
                if (*behind != 0 && std::string_view(row.b).starts_with(row.a)) continue;
                EXPECT_EQ(Sign(CompareNoCase(a, b)), row.order) << a << " " << b;
                EXPECT_EQ(Sign(CompareNoCase(a, c)), row.order) << a << " " << c;
                EXPECT_EQ(Sign(CompareNoCase(c, a)), -row.order) << c << " " << a;
                EXPECT_EQ(EqualNoCase(a, c), row.order == 0) << a << " " << c;
            }
        }
    }
}

std::string RandomPieces(std::mt19937& random, std::size_t most) {
    static const char* const kPieces[] = {
        "a",      "A",          "z",          "_",          "\u00E9",     "\u00C9",
        "\u00E8", "\u00DF",     "\u1E9E",     "\u0131",     "\u20AC",     "\u2C00",
        "\u2C30", "\U00010400", "\U00010428", "\U0001F600", "\U0001F601", "\xC3",
        "\xA9",   "\x89",       "\xE2",       "\x82",       "\xF0\x9F",   "\xFF"};
    std::string out;
    for (std::size_t i = random() % (most + 1); i > 0; --i)
        out += kPieces[random() % std::size(kPieces)];
    return out;
}

TEST(CompareNoCase, RandomTextsAreOrderedAsTheirUpperForms) {
    std::mt19937 random(11);
    for (int round = 0; round < 20000; ++round) {
        const std::string front = RandomPieces(random, 6);
        const std::string a = front + RandomPieces(random, 2);
        const std::string b = front + RandomPieces(random, 2);
        ASSERT_EQ(Sign(CompareNoCase(a, b)), PlainOrder(a, b)) << a << " | " << b;
        ASSERT_EQ(EqualNoCase(a, b), PlainOrder(a, b) == 0) << a << " | " << b;
    }
}

TEST(CompareNoCase, RandomBytesAreOrderedAsTheirUpperForms) {
    std::mt19937 random(12);
    for (int round = 0; round < 20000; ++round) {
        std::string a;
        for (std::size_t i = random() % 12; i > 0; --i)
            a += static_cast<char>(random() % 4 == 0 ? 'a' : 0x80 + random() % 128);
        std::string b = a;
        if (!b.empty()) b[random() % b.size()] = static_cast<char>(random() % 256);
        ASSERT_EQ(Sign(CompareNoCase(a, b)), PlainOrder(a, b)) << a << " | " << b;
    }
}

TEST(StartsWithNoCase, ComparesUpperForms) {
    EXPECT_TRUE(StartsWithNoCase("C:\\Music\\a", "c:\\music\\"));
    EXPECT_TRUE(StartsWithNoCase("\u00C4rger", "\u00E4"));
    EXPECT_TRUE(StartsWithNoCase("12345678\u00E9", "12345678\u00C9"));
    EXPECT_FALSE(StartsWithNoCase("C:\\Music", "c:\\music\\"));
    EXPECT_FALSE(StartsWithNoCase("abc", "b"));
    EXPECT_FALSE(StartsWithNoCase("\u00E9", "\u00E8"));
}

TEST(StartsWithNoCase, AnEmptyStartAlwaysFits) {
    EXPECT_TRUE(StartsWithNoCase("", ""));
    EXPECT_TRUE(StartsWithNoCase("a", ""));
    EXPECT_FALSE(StartsWithNoCase("", "a"));
}

TEST(StartsWithNoCase, TheWholeTextIsAStart) {
    EXPECT_TRUE(StartsWithNoCase("Stra\u00DFe", "STRA\u00DFE"));
    EXPECT_TRUE(StartsWithNoCase("a\xFF", "A\xFF"));
    EXPECT_FALSE(StartsWithNoCase("Stra\u00DFe", "STRASSE"));
}

TEST(StartsWithNoCase, PartOfACharacterIsNoStart) {
    EXPECT_FALSE(StartsWithNoCase("\u00E9", "\xC3"));
    EXPECT_FALSE(StartsWithNoCase("a\u20AC", "A\xE2\x82"));
    EXPECT_FALSE(StartsWithNoCase("\U0001F600", "\xF0\x9F\x98"));
    EXPECT_TRUE(StartsWithNoCase("\xE2\x82z", "\xE2\x82"));
}

TEST(StartsWithNoCase, RandomTextsStartAsTheirUpperFormsDo) {
    std::mt19937 random(13);
    for (int round = 0; round < 20000; ++round) {
        const std::string front = RandomPieces(random, 3);
        const std::string s = front + RandomPieces(random, 2);
        const std::string start = front + RandomPieces(random, 1);
        bool isStart = false; // of whole characters
        for (std::size_t pos = 0;; NextCharacter(s, pos)) {
            isStart = isStart || PlainOrder(s.substr(0, pos), start) == 0;
            if (pos == s.size()) break;
        }
        ASSERT_EQ(StartsWithNoCase(s, start), isStart) << s << " | " << start;
    }
}

TEST(ContainsNoCase, FindsInEitherCase) {
    EXPECT_TRUE(ContainsNoCase("C:\\$Recycle.Bin\\x", "$RECYCLE.bin"));
    EXPECT_TRUE(ContainsNoCase("xÄRGERx", "ärger"));
    EXPECT_TRUE(ContainsNoCase("abc", ""));
    EXPECT_TRUE(ContainsNoCase("", ""));
    EXPECT_FALSE(ContainsNoCase("abc", "abcd"));
    EXPECT_FALSE(ContainsNoCase("äbc", "d"));
}

} // namespace
