#include "text/encoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tarvix::text;
using testing::ElementsAre;

namespace {

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (LineReader reader(text); !reader.AtEnd();) {
        lines.emplace_back(reader.Next());
    }
    return lines;
}

TEST(FromFileBytes, KeepsUtf8) {
    EXPECT_EQ(FromFileBytes("Bj\u00F6rk\r\n"), "Bj\u00F6rk\r\n");
    EXPECT_EQ(FromFileBytes(""), "");
}

TEST(FromFileBytes, DropsOneByteOrderMark) {
    EXPECT_EQ(FromFileBytes("\uFEFFabc"), "abc");
    EXPECT_EQ(FromFileBytes("\uFEFF\uFEFFabc"), "\uFEFFabc");
    EXPECT_EQ(FromFileBytes("\uFEFF"), "");
}

TEST(FromFileBytes, ReadsOtherBytesAsWindows1252) {
    EXPECT_EQ(FromFileBytes("Bj\xF6rk"), "Björk");
    EXPECT_EQ(FromFileBytes("\x80 \x93quoted\x94 \x9F\xFF"), "€ “quoted” Ÿÿ");
}

TEST(FromFileBytes, OneBadByteTurnsAllOfIt) {
    EXPECT_EQ(FromFileBytes("é \xE9"), "Ã© é");
}

TEST(FromFileBytes, UndefinedBytesKeepTheirNumber) {
    EXPECT_EQ(FromFileBytes("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(LineReader, BothLineEnds) {
    EXPECT_THAT(LinesOf("a\r\nb\nc"), ElementsAre("a", "b", "c"));
}

TEST(LineReader, NoEmptyLineBehindTheLastEnd) {
    EXPECT_THAT(LinesOf("a\r\n"), ElementsAre("a"));
    EXPECT_THAT(LinesOf("a\r\n\r\n"), ElementsAre("a", ""));
    EXPECT_THAT(LinesOf("\n"), ElementsAre(""));
    EXPECT_THAT(LinesOf(""), ElementsAre());
}

TEST(LineReader, LoneCarriageReturnBelongsToTheLine) {
    EXPECT_THAT(LinesOf("a\rb\r\nc\r"), ElementsAre("a\rb", "c\r"));
    EXPECT_THAT(LinesOf("a\r\r\n"), ElementsAre("a\r"));
}

TEST(LineReader, NextAtTheEndIsEmpty) {
    LineReader reader("x");
    EXPECT_EQ(reader.Next(), "x");
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_EQ(reader.Next(), "");
}

} // namespace
