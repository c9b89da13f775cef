#include "results/column_groups.h"
#include "results/list_looks.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using results::RowSign;
using ::testing::ElementsAre;

class ListLooks : public ProgramFixture {
  protected:
    ListLooks() { Start(); }
    results::ResultList& Rows() { return program.Rows(); }
    void AddRows(std::initializer_list<const char*> names) {
        const auto* folder = Rows().AddFolder({.longPath = "C:\\t"});
        for (const char* name : names) {
            Rows().Add({.name = name, .folder = folder}, "01");
        }
    }
    // A row in a folder of a search location.
    void AddIn(const char* folder, const char* location) {
        results::RowFolder found;
        found.longPath = folder;
        found.searchPrefix = static_cast<std::uint32_t>(std::string_view(location).size() + 1);
        Rows().Add({.name = "a", .folder = Rows().AddFolder(found)}, "01");
    }
    std::string Location() { return results::CommonLocation(Rows(), 0, {}); }
};

TEST_F(ListLooks, ASpacerIsARuleBesideAGroupOfTwo) {
    AddRows({"a", "", "b", "", "c", "d", "", "e", "", "f"});
    std::vector<bool> rules;
    for (const std::size_t spacer : {1U, 3U, 6U, 8U}) {
        rules.push_back(results::DividesGroups(Rows(), spacer));
    }
    EXPECT_THAT(rules, ElementsAre(false, true, true, false));
}

TEST_F(ListLooks, ASpacerAtAnEndOfTheListIsARuleByItsOneNeighbour) {
    AddRows({"", "a", "b", ""});
    EXPECT_TRUE(results::DividesGroups(Rows(), 0));
    EXPECT_TRUE(results::DividesGroups(Rows(), 3));
    Rows().Clear();
    AddRows({"", "a", ""});
    EXPECT_FALSE(results::DividesGroups(Rows(), 0));
    EXPECT_FALSE(results::DividesGroups(Rows(), 2));
}

TEST_F(ListLooks, TheSignOfARowIsTheFirstThatHolds) {
    results::ResultRow row;
    EXPECT_EQ(results::SignOf(row), RowSign::kNone); // a spacer
    row.name = "a";
    EXPECT_EQ(results::SignOf(row), RowSign::kNone);
    row.isFolder = true;
    EXPECT_EQ(results::SignOf(row), RowSign::kFolder);
    row.attributes = 1024;
    EXPECT_EQ(results::SignOf(row), RowSign::kLink);
    row.marks = results::kListed | results::kEntry;
    EXPECT_EQ(results::SignOf(row), RowSign::kEntry);
    row.marks |= results::kReplacement;
    EXPECT_EQ(results::SignOf(row), RowSign::kReplacement);
    row.marks = results::kCut;
    EXPECT_EQ(results::SignOf(row), RowSign::kCut);
    row.marks |= results::kGone;
    EXPECT_EQ(results::SignOf(row), RowSign::kGone);
}

TEST_F(ListLooks, WhatTheLastActionDidIsASignBesideTheOtherMarks) {
    results::ResultRow row;
    row.name = "a";
    row.isFolder = true;
    row.marks = results::kNotRead;
    row.SetFate(results::RowFate::kRenamed);
    EXPECT_EQ(results::SignOf(row), RowSign::kRenamed);
    EXPECT_EQ(results::WordsOf(RowSign::kRenamed), "renamed");
    row.SetFate(results::RowFate::kMoved);
    EXPECT_EQ(results::SignOf(row), RowSign::kMoved);
    EXPECT_EQ(results::WordsOf(RowSign::kMoved), "moved");
    row.SetFate(results::RowFate::kFailed);
    EXPECT_EQ(results::SignOf(row), RowSign::kFailed);
    EXPECT_EQ(results::WordsOf(RowSign::kFailed), "failed in the last action");
    EXPECT_TRUE(row.Has(results::kNotRead));
    row.SetFate(results::RowFate::kNone);
    EXPECT_EQ(row.marks, results::kNotRead);
    EXPECT_EQ(results::SignOf(row), RowSign::kFolder);
}

TEST_F(ListLooks, OnlyLaterSearchStringsHaveANumber) {
    results::ResultRow row;
    row.searchForIndex = 2;
    EXPECT_EQ(results::LaterPattern(row), 0); // a spacer
    row.name = "a";
    EXPECT_EQ(results::LaterPattern(row), 2);
    row.searchForIndex = 1;
    EXPECT_EQ(results::LaterPattern(row), 0);
    row.searchForIndex = 12;
    row.marks = results::kListed;
    EXPECT_EQ(results::LaterPattern(row), 0);
}

TEST_F(ListLooks, OneLocationIsWhatAllRowsShare) {
    EXPECT_EQ(Location(), "");
    AddIn("C:\\m\\Abba\\Live", "C:\\m\\Abba");
    AddIn("C:\\m\\Abba", "C:\\m\\Abba");
    EXPECT_EQ(Location(), "C:\\m\\Abba");
}

TEST_F(ListLooks, SeveralLocationsShareTheDeepestFolderThatHoldsThem) {
    AddIn("C:\\m\\Abba\\Live", "C:\\m\\Abba");
    AddIn("C:\\m\\Beatles", "C:\\m\\Beatles");
    EXPECT_EQ(Location(), "C:\\m");
    EXPECT_EQ(results::CommonLocation(Rows(), 1, "C:\\m\\Beatles"), "C:\\m\\Beatles");
    AddIn("E:\\x", "E:\\x");
    EXPECT_EQ(Location(), "");
}

TEST_F(ListLooks, ADriveOrAnUnknownLocationIsNone) {
    AddIn("C:\\a", "C:");
    EXPECT_EQ(Location(), "");
    Rows().Clear();
    AddRows({"a"});
    EXPECT_EQ(Location(), "");
}

TEST_F(ListLooks, ThePathBeginsBelowTheLocation) {
    AddIn("C:\\m\\Abba\\Live", "C:\\m");
    AddIn("C:\\m", "C:\\m");
    EXPECT_EQ(results::PathFrom(S(), 0, "C:\\m"), isJudged ? "Abba/Live" : "Abba\\Live");
    EXPECT_EQ(results::PathFrom(S(), 1, "C:\\m"), ".");
    EXPECT_EQ(results::PathFrom(S(), 0, ""), isJudged ? "/m/Abba/Live" : "C:\\m\\Abba\\Live");
    EXPECT_EQ(Cells(results::kPath).front(), "C:\\m\\Abba\\Live");
}

TEST_F(ListLooks, SizesHaveAReadableAndAnExactForm) {
    const auto* folder = Rows().AddFolder({.longPath = "C:\\t"});
    Rows().Add({.name = "a", .folder = folder, .size = 11'612}, "01");
    Rows().Add({.name = "", .folder = folder, .isFolder = true}, "01");
    Rows().Add({.name = "b", .folder = folder, .isFolder = true}, "01");
    Rows().Add({.name = "c", .folder = folder, .size = 1}, "01");
    EXPECT_EQ(results::ReadableSizeCell(Rows(), 0), "11.6 kB");
    EXPECT_EQ(results::ExactSize(Rows(), 0), "11,612 bytes");
    EXPECT_EQ(results::ReadableSizeCell(Rows(), 1), "");
    EXPECT_EQ(results::ExactSize(Rows(), 2), "");
    EXPECT_EQ(results::ExactSize(Rows(), 3), "1 byte");
}

TEST_F(ListLooks, EachFillingOfTheListIsAnother) {
    const auto before = Rows().Clearings();
    AddRows({"a", "b"});
    Rows().Reorder({1, 0});
    EXPECT_EQ(Rows().Clearings(), before);
    Rows().Clear();
    EXPECT_EQ(Rows().Clearings(), before + 1);
}

TEST(ColumnGroups, EveryChoosableColumnHasItsPlace) {
    using results::ColumnGroup;
    std::array<int, 5> counts{};
    for (int column = 0; column < results::kColumnCount; ++column) {
        if (results::IsChoosable(column)) {
            ++counts[static_cast<std::size_t>(results::GroupOf(column))];
        }
    }
    EXPECT_THAT(counts, ElementsAre(5, 4, 3, 7, 5));
    EXPECT_EQ(results::GroupOf(results::kHotKey), ColumnGroup::kLinks);
    EXPECT_EQ(results::TitleOf(ColumnGroup::kPrograms), "Programs");
}

TEST(ColumnGroups, SixColumnsAreUsual) {
    std::vector<int> usual;
    for (int column = 0; column < results::kColumnCount; ++column) {
        if (results::IsUsual(column)) usual.push_back(column);
    }
    EXPECT_THAT(usual, ElementsAre(results::kName, results::kSize, results::kDate, results::kType,
                                   results::kExt, results::kPath));
    EXPECT_TRUE(results::IsWide(results::kPath));
    EXPECT_FALSE(results::IsWide(results::kDate));
}

} // namespace
} // namespace tarvix::testing
