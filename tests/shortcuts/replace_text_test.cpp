#include "shortcuts/replace_text.h"

#include <gtest/gtest.h>

namespace tarvix::shortcuts {
namespace {

TEST(Replacing, TakesEveryHitInAnyCase) {
    EXPECT_EQ(Replaced("C:\\Old\\old.exe", {.find = "old", .with = "new"}), "C:\\new\\new.exe");
    EXPECT_EQ(Replaced("C:\\Old\\old.exe", {.find = "old", .with = "new", .matchesCase = true}),
              "C:\\Old\\new.exe");
    EXPECT_EQ(Replaced("\u00C4b\u00E4", {.find = "\u00E4", .with = "x"}), "xbx");
    EXPECT_EQ(Replaced("aaa", {.find = "aa", .with = "a"}), "aa");
    EXPECT_EQ(Replaced("abc", {.find = "", .with = "x"}), "abc");
    EXPECT_EQ(Replaced("ab", {.find = "abc", .with = "x"}), "ab");
    EXPECT_EQ(Replaced("a*b", {.find = "*", .with = "+"}), "a+b");
}

TEST(Replacing, ByAPatternPutsTheRunsInTheirPlaces) {
    const Replacement moved{.find = "c:\\old\\*", .with = "D:\\new\\*", .isPattern = true};
    EXPECT_EQ(Replaced("C:\\OLD\\a\\b.exe", moved), "D:\\new\\a\\b.exe");
    EXPECT_EQ(Replaced("C:\\older\\a", moved), "C:\\older\\a");
    EXPECT_EQ(Replaced("x C:\\old\\a", moved), "x C:\\old\\a");
    EXPECT_EQ(Replaced("ab-cd", {.find = "*-??", .with = "?*x*", .isPattern = true}), "abcxd");
    EXPECT_EQ(Replaced("a.b.c", {.find = "*.c", .with = "*", .isPattern = true}), "a.b");
    EXPECT_EQ(Replaced("a.b.c", {.find = "*.*", .with = "*|*", .isPattern = true}), "a|b.c");
    EXPECT_EQ(Replaced("ab", {.find = "*", .with = "*?", .isPattern = true}), "ab?");
}

} // namespace
} // namespace tarvix::shortcuts
