#include "cli/nearest.h"
#include "cli/values.h"

#include <gtest/gtest.h>

#include <array>

namespace tarvix::cli {
namespace {

TEST(ReadSizeTest, UnitsAreThoseOfTheWindow) {
    struct Case {
        std::string_view text;
        std::int64_t bytes;
    };
    for (const auto& [text, bytes] : std::array<Case, 27>{{{"0", 0},
                                                           {"000", 0},
                                                           {"0G", 0},
                                                           {"4096", 4096},
                                                           {"010", 10},
                                                           {"0010K", 10240},
                                                           {"10K", 10240},
                                                           {"10k", 10240},
                                                           {"10KB", 10000},
                                                           {"10KiB", 10240},
                                                           {"1.5M", 1572864},
                                                           {"1.5 MB", 1500000},
                                                           {"10 K", 10240},
                                                           {" 10", 10},
                                                           {"10 ", 10},
                                                           {"3MiB", 3145728},
                                                           {"1G", 1073741824},
                                                           {"1gb", 1000000000},
                                                           {"1.5 GiB", 1610612736},
                                                           {"7b", 7},
                                                           {"2097151K", 2147482624},
                                                           {"2147483647", 2147483647},
                                                           {"2147483648", 2147483648},
                                                           {"2G", 2147483648},
                                                           {"3000M", 3145728000},
                                                           {"1T", 1099511627776},
                                                           {"4194303T", 4611684918915760128}}}) {
        const auto size = ReadSize("--size-at-least", text);
        ASSERT_TRUE(size) << text;
        EXPECT_EQ(*size, bytes) << text;
    }
}

TEST(ReadSizeTest, WhatIsNoSizeOrTooLargeIsRefusedByName) {
    for (const std::string_view text : {"",
                                        " ",
                                        "x",
                                        "-1",
                                        "+1",
                                        "-0",
                                        "10X",
                                        "1.5",
                                        "1.5 B",
                                        "1,5M",
                                        "K",
                                        "0x10",
                                        "0b1",
                                        "1e3",
                                        "10K1",
                                        "10KK",
                                        "1K..2K",
                                        "1\xC2\xA0K",
                                        "4194304T",
                                        "1E",
                                        "16E",
                                        "18446744073709551615",
                                        "18446744073709551616",
                                        "99999999999999999999",
                                        "99999999999999999999K"}) {
        const auto size = ReadSize("--size-at-most", text);
        ASSERT_FALSE(size) << text;
        EXPECT_EQ(size.error(), "--size-at-most takes a size below 4 EiB, such as 4096, 10K, "
                                "1.5M or \"2 GB\", not \"" +
                                    std::string(text) + "\".");
    }
}

TEST(ReadDateTest, WordsAreNoDateForAClock) {
    EXPECT_EQ(ReadDate("--now", "2026-11-15"), (text::DateTime{2026, 11, 15}));
    EXPECT_EQ(ReadDate("--now", "today").error(),
              "--now takes a date such as 2026-11-15 or \"2026-11-15 19:54:52\", not \"today\".");
}

TEST(ReadMomentTest, ADateNeedsADay) {
    EXPECT_EQ(ReadMoment("--since", "2026-11-15"), (text::DateTime{2026, 11, 15}));
    EXPECT_EQ(ReadMoment("--since", "2024-02-29"), (text::DateTime{2024, 2, 29}));
    EXPECT_EQ(ReadMoment("--since", "2026/11/15 19:54:52"),
              (text::DateTime{2026, 11, 15, 19, 54, 52}));
    for (const std::string_view text :
         {"", " ", "19:54", "2026-02-29", "2026-02-30", "2026-13-01", "2026-00-10", "-2026-01-01",
          "2026-11-15 24:00", "2026-11-15 19:60", "soon"}) {
        const auto date = ReadMoment("--since", text);
        ASSERT_FALSE(date) << text;
        EXPECT_EQ(date.error(), "--since takes a date such as 2026-11-15, \"2026-11-15 19:54:52\" "
                                "or \"last 7 days\", not \"" +
                                    std::string(text) + "\".");
    }
}

TEST(ReadRangeTest, ABareSecondDateIsTheEndOfItsDay) {
    const auto days = ReadDateRange("--between", "2026-11-15 .. 2026-11-16");
    EXPECT_EQ(days->low, (text::DateTime{2026, 11, 15}));
    EXPECT_EQ(days->high, (text::DateTime{2026, 11, 16, 23, 59, 59}));
    const auto moments = ReadDateRange("--between", "2026-11-15 10:00..2026-11-16 00:00");
    EXPECT_EQ(moments->low, (text::DateTime{2026, 11, 15, 10}));
    EXPECT_EQ(moments->high, (text::DateTime{2026, 11, 16}));
    const auto mixed = ReadDateRange("--between", "2026-11-15 10:00..2026-11-16");
    EXPECT_EQ(mixed->high, (text::DateTime{2026, 11, 16, 23, 59, 59}));
}

TEST(ReadRangeTest, BothEndsMustBeThereAndOfTheirKind) {
    const auto sizes = ReadSizeRange("--size-range", "1K..2K");
    EXPECT_EQ(sizes->low, 1024);
    EXPECT_EQ(sizes->high, 2048);
    for (const std::string_view text : {"", "..", "1K..", "..2K", "1K-2K", "1K.2K", "1K"}) {
        EXPECT_EQ(ReadSizeRange("--size-range", text).error(),
                  "--size-range takes two ends with \"..\" between, not \"" + std::string(text) +
                      "\".");
    }
    for (const std::string_view text : {"x..1", "1..x", "1...2", "1..2..3", "1..2E", "-1..2"}) {
        EXPECT_TRUE(
            ReadSizeRange("--size-range", text).error().starts_with("--size-range takes a size"))
            << text;
    }
}

TEST(ReadRangeTest, WordsForAStretchAreBothEnds) {
    const auto week = ReadDateRange("--between", "last 7 days");
    EXPECT_EQ(week->low, Moment("last 7 days", false));
    EXPECT_EQ(week->high, Moment("last 7 days", true));
    const auto month = ReadDateRange("--between", "2026-03");
    EXPECT_EQ(month->high, Moment("2026-03", true));
    const auto mixed = ReadDateRange("--between", "2026-11-15..yesterday");
    EXPECT_EQ(mixed->low, (text::DateTime{2026, 11, 15}));
    EXPECT_EQ(mixed->high, Moment("yesterday", true));
    const auto day = ReadDateRange("--between", "2026-11-15");
    EXPECT_EQ(day->low, (text::DateTime{2026, 11, 15}));
    EXPECT_EQ(day->high, (text::DateTime{2026, 11, 15, 23, 59, 59}));
    EXPECT_FALSE(ReadDateRange("--between", "some day"));
}

TEST(ReadLevelsTest, TakesNumbersFromOneToThreeDigits) {
    EXPECT_EQ(ReadLevels("--up", "1"), 1);
    EXPECT_EQ(ReadLevels("--up", "010"), 10);
    EXPECT_EQ(ReadLevels("--up", "999"), 999);
    for (const std::string_view text :
         {"", " ", "0", "-0", "-1", "+1", " 1", "1 ", "1000", "0x2", "1.5", "two", "4294967297"}) {
        EXPECT_EQ(ReadLevels("--up", text).error(),
                  "--up takes a number of levels from 1 to 999, not \"" + std::string(text) +
                      "\".");
    }
}

TEST(ReadDriveTest, TakesALetterAndAFolder) {
    using Drive = std::pair<char, std::string>;
    EXPECT_EQ(ReadDrive("--drive", "e=/srv/a=b"), (Drive{'E', "/srv/a=b"}));
    EXPECT_EQ(ReadDrive("--drive", "Z:=x"), (Drive{'Z', "x"}));
    for (const std::string_view text :
         {"", "=", "E", "E=", "E:", "=/x", ":=/x", "C=/x", "EE=/x", "E;=/x", "[=/x", "1=/x"}) {
        EXPECT_EQ(ReadDrive("--drive", text).error(),
                  "--drive takes a letter from D to Z and a folder, such as E=/srv/collection, not "
                  "\"" +
                      std::string(text) + "\".");
    }
}

TEST(ReadColumnsTest, AreKeysInAnyCaseWithCommasBetween) {
    EXPECT_EQ(ReadColumns("--columns", "NAME,nativepath, SizeSubItem "),
              (std::vector<int>{0, kNativePathColumn, 1}));
    for (const std::string_view text : {"", ",", "Name,", "Name SizeSubItem"}) {
        EXPECT_FALSE(ReadColumns("--columns", text)) << text;
    }
    EXPECT_EQ(ReadColumn("Nmae").error(), "There is no column \"Nmae\". Did you mean \"Name\"?");
}

TEST(ReadColumnsTest, TakesShortWordsAndCaptionsToo) {
    const std::vector<std::pair<std::string_view, results::Column>> cases{
        {"size", results::kSize},
        {"DATE", results::kDate},
        {"Exe Type", results::kExeType},
        {"exetype", results::kExeType},
        {"Path\\Name without Search Folder", results::kPathNameNoSrch},
        {"relative", results::kPathNameNoSrch},
        {"fullpath", results::kPathName},
        {"Hot Key of Link (Shortcut Key)", results::kHotKey},
        {"location", results::kSearchFolderIndex}};
    for (const auto& [name, column] : cases)
        EXPECT_EQ(ReadColumn(name).value_or(results::kName), column) << name;
    EXPECT_EQ(ReadColumn("sizze").error(), "There is no column \"sizze\". Did you mean \"size\"?");
    EXPECT_EQ(ReadColumn("colour").error(),
              "There is no column \"colour\". tarvix-cli search --help lists them.");
    EXPECT_EQ(ReadColumn("bytes").error(),
              "bytes is no column of the list: it can only be printed.");
    const auto all = ReadColumns("--columns", "all");
    ASSERT_EQ(all->size(), 31U);
    EXPECT_EQ(all->front(), results::kName);
    EXPECT_EQ((*all)[26], results::kSearchFolderIndex);
    EXPECT_EQ(all->back(), kIsFolderColumn);
}

TEST(ReadSortTest, IsAKeyAndADirection) {
    EXPECT_FALSE(ReadSort("--sort", "name")->descending);
    EXPECT_FALSE(ReadSort("--sort", "Name:asc")->descending);
    EXPECT_TRUE(ReadSort("--sort", "SizeSubItem:DESC")->descending);
    EXPECT_EQ(ReadSort("--sort", "SizeSubItem:DESC")->column, results::kSize);
    for (const std::string_view text : {"", ":desc", "Name:", "Name:up", "NativePath"}) {
        EXPECT_FALSE(ReadSort("--sort", text)) << text;
    }
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
