#include "results/quick_cells.h"
#include "results/result_list.h"
#include "text/dates.h"
#include "text/format.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tarvix::results {
namespace {

std::string Size(std::uint64_t bytes) {
    std::string cell = "before";
    AppendSize(cell, bytes);
    return cell;
}

std::string Date(const text::DateTime& date) {
    std::string cell = "before";
    AppendDate(cell, text::ToSeconds(date));
    return cell;
}

std::string Extension(std::string_view name) {
    std::string cell;
    AppendExtension(cell, name);
    return cell;
}

std::string Padded(std::uint64_t number, std::size_t digits) {
    std::string cell;
    AppendPadded(cell, number, digits);
    return cell;
}

TEST(QuickCells, SizesHaveTwelveDigitsInThrees) {
    EXPECT_EQ(Size(0), "before000,000,000,000");
    EXPECT_EQ(Size(7), "before000,000,000,007");
    EXPECT_EQ(Size(1'234'567), "before000,001,234,567");
    EXPECT_EQ(Size(999'999'999'999), "before999,999,999,999");
    EXPECT_EQ(Size(1'000'000'000'000), "before1,000,000,000,000");
}

TEST(QuickCells, DatesRunFromYearToSecond) {
    EXPECT_EQ(Date({2026, 11, 15, 19, 54, 52}), "before2026/11/15 19:54:52");
    EXPECT_EQ(Date({2026, 11, 15, 0, 0, 0}), "before2026/11/15 00:00:00");
    EXPECT_EQ(Date({2026, 11, 14, 23, 59, 59}), "before2026/11/14 23:59:59");
    EXPECT_EQ(Date({1969, 12, 31, 23, 59, 59}), "before1969/12/31 23:59:59");
    EXPECT_EQ(Date({1970, 1, 1, 0, 0, 0}), "before1970/01/01 00:00:00");
    EXPECT_EQ(Date({1000, 1, 1, 1, 2, 3}), "before1000/01/01 01:02:03");
}

TEST(QuickCells, DatesAreThoseOfTheirPicture) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 20'000; ++i) {
        const auto seconds = static_cast<std::int64_t>(random() % 40'000'000'000) - 20'000'000'000;
        std::string cell;
        AppendDate(cell, seconds);
        ASSERT_EQ(cell, text::FormatDate(text::FromSeconds(seconds), "yyyy/mm/dd hh:mm:ss"))
            << seconds;
    }
}

TEST(QuickCells, ExtensionsOfUpToFiveCharactersInLowerCase) {
    EXPECT_EQ(Extension("a.TXT"), "txt");
    EXPECT_EQ(Extension("a.b.Flac1"), "flac1");
    EXPECT_EQ(Extension("a.sixsix"), "");
    EXPECT_EQ(Extension("none"), "");
    EXPECT_EQ(Extension("dot."), "");
    EXPECT_EQ(Extension("a.ÄÖÜÉÑ"), "äöüéñ");
    EXPECT_EQ(Extension("a.ÄÖÜÉÑß"), "");
}

TEST(QuickCells, NumbersArePaddedToTheirDigits) {
    EXPECT_EQ(Padded(0, 2), "00");
    EXPECT_EQ(Padded(7, 2), "07");
    EXPECT_EQ(Padded(12, 2), "12");
    EXPECT_EQ(Padded(345, 2), "345");
}

TEST(QuickCells, LengthAndLevelsAreThoseOfThePath) {
    const RowFolder plain{.longPath = "C:\\t\\é", .mixedPath = {}};
    EXPECT_EQ(RowPathLength(plain, "ü.txt", false), 12U);
    EXPECT_EQ(RowPathLength(plain, "é", true), 6U);
    EXPECT_EQ(RowPathLevels(plain, false), 3U);
    EXPECT_EQ(RowPathLevels(plain, true), 2U);
    const RowFolder root{.longPath = "C:\\", .mixedPath = {}};
    EXPECT_EQ(RowPathLength(root, "a", false), 4U);
    EXPECT_EQ(RowPathLevels(root, false), 1U);
}

TEST(QuickCells, ColumnsOfPathsSayNothingOfFacts) {
    EXPECT_TRUE(IsOfPath(kName));
    EXPECT_TRUE(IsOfPath(kPathName));
    EXPECT_TRUE(IsOfPath(kSearchFolderIndex));
    EXPECT_FALSE(IsOfPath(kSize));
    EXPECT_FALSE(IsOfPath(kDate));
    EXPECT_FALSE(IsOfPath(kAttributes));
    EXPECT_FALSE(IsOfPath(kType));
    EXPECT_FALSE(IsOfPath(kFilesInFolder));
}

} // namespace
} // namespace tarvix::results
