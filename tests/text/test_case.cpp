#include "text/case.h"

#include <gtest/gtest.h>

#include <string>

using namespace tarvix::text;

namespace {

TEST(Upper, MapsOneToOne) {
    EXPECT_EQ(Upper("abcxyz{`@[09"), "ABCXYZ{`@[09");
    EXPECT_EQ(Upper("äöü éñ"), "ÄÖÜ ÉÑ");
    EXPECT_EQ(Upper("жαÿ"), "ЖΑŸ");
    EXPECT_EQ(Upper("日本"), "日本");
    EXPECT_EQ(Upper(""), "");
}

TEST(Upper, SharpSStays) {
    EXPECT_EQ(Upper("Straße"), "STRAßE");
}

TEST(Upper, KeepsInvalidBytes) {
    EXPECT_EQ(Upper("a\xFF\xE2\x82z"), "A\xFF\xE2\x82Z");
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

TEST(ContainsNoCase, FindsInEitherCase) {
    EXPECT_TRUE(ContainsNoCase("C:\\$Recycle.Bin\\x", "$RECYCLE.bin"));
    EXPECT_TRUE(ContainsNoCase("xÄRGERx", "ärger"));
    EXPECT_TRUE(ContainsNoCase("abc", ""));
    EXPECT_TRUE(ContainsNoCase("", ""));
    EXPECT_FALSE(ContainsNoCase("abc", "abcd"));
    EXPECT_FALSE(ContainsNoCase("äbc", "d"));
}

} // namespace
