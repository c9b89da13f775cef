#include "text/numbers.h"

#include <gtest/gtest.h>

using namespace tarvix::text;

namespace {

struct NumberCase {
    const char* text;
    std::int32_t value;
};

TEST(ParseWholeNumber, TakesSignsAndBlanks) {
    constexpr NumberCase rows[] = {{"0", 0},      {"007", 7},
                                   {"  42 ", 42}, {"+5", 5},
                                   {"-5", -5},    {"2147483647", 2147483647},
                                   {"-0", 0},     {"-2147483648", -2147483647 - 1}};
    for (const NumberCase& row : rows) {
        EXPECT_EQ(ParseWholeNumber(row.text), row.value) << row.text;
        EXPECT_TRUE(IsNumeric(row.text)) << row.text;
    }
}

TEST(ParseWholeNumber, RefusesAllElse) {
    for (const char* text :
         {"", " ", "a", "1a", "1.0", "1,000", "2147483648", "-2147483649", "99999999999999999999",
          "+", "-", "+-5", "-+5", "- 5", "1 2", "0x1", "\t1", "٣", "\xFF"}) {
        EXPECT_FALSE(ParseWholeNumber(text).has_value()) << text;
        EXPECT_FALSE(IsNumeric(text)) << text;
    }
}

TEST(IsAllDigits, OnlyPlainDigits) {
    EXPECT_TRUE(IsAllDigits("0123456789"));
    EXPECT_TRUE(IsAllDigits("99999999999999999999"));
    for (const char* text : {"", " 1", "1 ", "-1", "1.0", "1a", "٣"}) {
        EXPECT_FALSE(IsAllDigits(text)) << text;
    }
}

TEST(IsBlankValue, EmptyOrZeroDate) {
    EXPECT_TRUE(IsBlankValue(""));
    EXPECT_TRUE(IsBlankValue("12:00:00 AM"));
    EXPECT_FALSE(IsBlankValue("0"));
    EXPECT_FALSE(IsBlankValue(" "));
    EXPECT_FALSE(IsBlankValue("12:00:00 PM"));
}

TEST(IsZeroOrBlank, AlsoZero) {
    EXPECT_TRUE(IsZeroOrBlank(""));
    EXPECT_TRUE(IsZeroOrBlank("12:00:00 AM"));
    EXPECT_TRUE(IsZeroOrBlank("0"));
    EXPECT_FALSE(IsZeroOrBlank("1"));
    EXPECT_FALSE(IsZeroOrBlank("00"));
}

} // namespace
