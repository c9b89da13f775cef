#include "actions/sources/clean_names.h"

#include <gtest/gtest.h>

namespace tarvix::actions {
namespace {

TEST(CleanNames, ATitleLosesWhatNoNameMayHold) {
    EXPECT_EQ(CleanTitle("a\\b/c:d*e?f<g>h\"i|j"), "abcdefghij");
    EXPECT_EQ(CleanTitle(""), "");
    EXPECT_EQ(CleanTitle("\\/:*?<>\"|"), "");
    EXPECT_EQ(CleanTitle("  Grüße, Köln  "), "  Grüße, Köln  ");
}

TEST(CleanNames, ATextOfALinkGetsOtherCharactersInstead) {
    EXPECT_EQ(CleanWebName("a|b>c<d\"e?f*g:h/i\\j"), "a~b)c(d'e!f-g-h-i-j");
    EXPECT_EQ(CleanWebName("a\x01\r\n\x1F"
                           "b"),
              "ab");
    EXPECT_EQ(CleanWebName(""), "");
}

TEST(CleanNames, OfEachKindAHundredAreReplaced) {
    EXPECT_EQ(CleanWebName(std::string(101, ':')), std::string(100, '-') + ":");
    EXPECT_EQ(CleanWebName(std::string(100, ':') + std::string(100, '?')),
              std::string(100, '-') + std::string(100, '!'));
}

TEST(CleanNames, ANameStandsOnOneLine) {
    EXPECT_EQ(OnOneNameLine("\t a\tb\x0B\xC2\xA0"
                            "c \r"),
              "a b  c");
}

} // namespace
} // namespace tarvix::actions
