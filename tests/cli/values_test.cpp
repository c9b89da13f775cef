#include "cli/nearest.h"
#include "cli/values.h"

#include <gtest/gtest.h>

#include <array>

namespace tarvix::cli {
namespace {

TEST(ReadSizeTest, UnitsAreBinaryAndInEitherCase) {
    struct Case {
        std::string_view text;
        std::int64_t bytes;
    };
    for (const auto& [text, bytes] : std::array<Case, 9>{{{"0", 0},
                                                          {"4096", 4096},
                                                          {"10K", 10240},
                                                          {"10k", 10240},
                                                          {"10KB", 10240},
                                                          {"3MiB", 3145728},
                                                          {"1G", 1073741824},
                                                          {"7b", 7},
                                                          {"2147483647", 2147483647}}}) {
        const auto size = ReadSize("--size-at-least", text);
        ASSERT_TRUE(size) << text;
        EXPECT_EQ(*size, bytes) << text;
    }
}

TEST(ReadSizeTest, WhatIsNoSizeIsRefusedByName) {
    for (const std::string_view text : {"", "x", "-1", "10X", "1.5M", "10 K", "K", "0x10"}) {
        const auto size = ReadSize("--size-at-most", text);
        ASSERT_FALSE(size) << text;
        EXPECT_EQ(size.error(), "--size-at-most takes a size in bytes such as 4096, 10K, 10M or "
                                "1G, not \"" +
                                    std::string(text) + "\".");
    }
}

TEST(ReadSizeTest, SizesThatTheBoxesCannotHoldAreRefused) {
    for (const std::string_view text : {"2147483648", "2G", "3000M", "99999999999999999999"}) {
        const auto size = ReadSize("--size-range", text);
        ASSERT_FALSE(size) << text;
        EXPECT_NE(size.error().find("at most 2147483647 bytes"), std::string::npos) << text;
    }
}

TEST(ReadMomentTest, ADateNeedsADay) {
    EXPECT_EQ(ReadMoment("--since", "2026-11-15"), (text::DateTime{2026, 11, 15}));
    EXPECT_EQ(ReadMoment("--since", "2026/11/15 19:54:52"),
              (text::DateTime{2026, 11, 15, 19, 54, 52}));
    for (const std::string_view text : {"", "19:54", "2026-02-30", "soon"}) {
        EXPECT_FALSE(ReadMoment("--since", text)) << text;
    }
}

TEST(ReadMomentTest, TheLastMomentOfABareDateIsTheEndOfTheDay) {
    EXPECT_EQ(ReadLastMoment("--between", "2026-11-15"),
              (text::DateTime{2026, 11, 15, 23, 59, 59}));
    EXPECT_EQ(ReadLastMoment("--between", "2026-11-15 00:00"), (text::DateTime{2026, 11, 15}));
}

TEST(SplitRangeTest, BothEndsMustBeThere) {
    EXPECT_EQ(SplitRange("1K..2K"), (std::pair<std::string_view, std::string_view>{"1K", "2K"}));
    EXPECT_FALSE(SplitRange("1K.."));
    EXPECT_FALSE(SplitRange("..2K"));
    EXPECT_FALSE(SplitRange("1K-2K"));
}

TEST(NearestTest, ATypingErrorFindsItsName) {
    constexpr std::array<std::string_view, 3> kNames{"cmbDir", "cmbSearchFor", "cmdSearch"};
    EXPECT_EQ(Nearest("cmbDri", kNames), "cmbDir");
    EXPECT_EQ(Nearest("CMDSERCH", kNames), "cmdSearch");
    EXPECT_EQ(Nearest("somethingElse", kNames), "");
    EXPECT_EQ(DidYouMean("cmbDri", kNames), " Did you mean \"cmbDir\"?");
    EXPECT_EQ(DidYouMean(std::string(1000, 'x'), kNames), "");
}

} // namespace
} // namespace tarvix::cli
