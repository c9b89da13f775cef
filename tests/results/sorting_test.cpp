#include "results/sorting.h"
#include "tests/support/program_fixture.h"
#include "text/case.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::testing {
namespace {

using fields::SortDirection;
using results::Column;
using ::testing::ElementsAre;

class Sorting : public ProgramFixture {
  protected:
    void Find(std::initializer_list<std::pair<const char*, int>> files) {
        for (const auto& [name, size] : files) {
            Disk().AddFileOfSize("C:\\t\\" + std::string(name), static_cast<std::uint64_t>(size));
        }
        Start();
        Set(Form().chkFastSort, "0");
        Form().lstMain.SortKey = int{results::kName};
        Search("*", "C:\\t");
    }
    void ClickHead(Column column) { results::lstMain_ColumnClick(S(), column); }
};

TEST_F(Sorting, FoundRowsStandByNameWithASpacerBetweenNames) {
    Find({{"b.txt", 1}, {"a.txt", 2}, {"C.txt", 3}});
    EXPECT_THAT(Names(), ElementsAre("a.txt", "", "b.txt", "", "C.txt"));
    EXPECT_EQ(Form().lblGroups.Caption.Get(), "3");
}

TEST_F(Sorting, FastSortMakesNoGroups) {
    Disk().AddFile("C:\\t\\b");
    Disk().AddFile("C:\\t\\a");
    Start();
    Form().lstMain.SortKey = int{results::kName};
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a", "b"));
    EXPECT_EQ(Form().lblGroups.Caption.Get(), "1");
}

TEST_F(Sorting, KeysThatDifferInCaseOnlyAreOneGroup) {
    Find({{"one.TXT", 1}, {"two.txt", 2}, {"three.mp3", 3}});
    ClickHead(results::kExt);
    EXPECT_THAT(Names(), ElementsAre("three.mp3", "", "one.TXT", "two.txt"));
    EXPECT_EQ(Form().lblGroups.Caption.Get(), "2");
}

TEST_F(Sorting, TheSameHeadTwiceTurnsTheOrderAndRebuildsTheGroups) {
    Find({{"a", 5}, {"b", 5}, {"c", 7}});
    ClickHead(results::kSize);
    EXPECT_THAT(Names(), ElementsAre("a", "b", "", "c"));
    ClickHead(results::kSize);
    EXPECT_THAT(Names(), ElementsAre("c", "", "a", "b"));
    EXPECT_EQ(Form().lstMain.SortOrder.Get(), SortDirection::kDescending);
}

TEST_F(Sorting, AnotherHeadStartsAscending) {
    Find({{"a", 5}, {"b", 4}});
    ClickHead(results::kName); // turns the name to descending
    EXPECT_THAT(Names(), ElementsAre("b", "", "a"));
    ClickHead(results::kSize);
    EXPECT_THAT(Names(), ElementsAre("b", "", "a"));
    EXPECT_EQ(Form().lstMain.SortOrder.Get(), SortDirection::kAscending);
}

TEST_F(Sorting, ASelectionSurvivesASort) {
    Find({{"a", 9}, {"b", 1}, {"c", 5}});
    program.Rows().At(0).selected = true; // a
    ClickHead(results::kSize);
    EXPECT_THAT(Names(), ElementsAre("b", "", "c", "", "a"));
    EXPECT_TRUE(program.Rows().At(4).selected);
    EXPECT_EQ(Form().lblNumOfFilesSelected.Caption.Get(), "1");
    EXPECT_EQ(Form().lblTotalSize.Caption.Get(), "9");
}

TEST_F(Sorting, SelectingAllLeavesSpacersOut) {
    Find({{"a", 3}, {"b", 4}});
    Click(Form().cmdSelectAll);
    EXPECT_EQ(Form().lblNumOfFilesSelected.Caption.Get(), "2");
    EXPECT_EQ(Form().lblTotalSize.Caption.Get(), "7");
    EXPECT_FALSE(program.Rows().At(1).selected);
}

TEST_F(Sorting, TextOrderIgnoresCaseAndBreaksTiesByExactText) {
    Find({{"B", 1}, {"a", 1}, {"b", 1}, {"A", 1}});
    EXPECT_THAT(Names(), ElementsAre("A", "a", "", "B", "b"));
}

TEST_F(Sorting, EqualCellsKeepTheirOrderInBothDirections) {
    Find({{"x1", 5}, {"x2", 5}, {"x3", 5}});
    ClickHead(results::kSize);
    EXPECT_THAT(Names(), ElementsAre("x1", "x2", "x3"));
    ClickHead(results::kSize);
    EXPECT_THAT(Names(), ElementsAre("x1", "x2", "x3"));
}

TEST_F(Sorting, SizesOfMoreThanTwelveDigitsSortAsText) {
    Disk().AddFileOfSize("C:\\t\\huge", 1'000'000'000'000);
    Disk().AddFileOfSize("C:\\t\\large", 999'999'999'999);
    Disk().AddFileOfSize("C:\\t\\small", 5);
    Start();
    Form().lstMain.SortKey = int{results::kSize};
    Search("*", "C:\\t");
    // "1,000,000,000,000" stands between "000,..." and "999,..." as a text.
    EXPECT_THAT(Names(), ElementsAre("small", "huge", "large"));
}

// Few and many different texts are sorted in different ways, to the same result.
TEST_F(Sorting, ManyRowsStandAsAPlainComparisonOfTheirTextsPutsThem) {
    for (int i = 0; i < 3000; ++i) {
        const std::string name = std::string(i % 3 == 0 ? "Song " : "song ") +
                                 std::to_string(i * 7919 % 500) + "." +
                                 (i % 2 == 0 ? "MP3" : "mp3");
        Disk().AddFileOfSize("C:\\t\\" + std::to_string(i) + "\\" + name, 1);
    }
    Start();
    Click(Form().chkIncludeSubFolders);
    Search("*", "C:\\t");
    for (const Column column : {results::kName, results::kExt, results::kPath, results::kPathName,
                                results::kPathNameLength, results::kYearRank,
                                results::kSearchForEntry, results::kSize, results::kDate}) {
        for (const auto direction : {SortDirection::kAscending, SortDirection::kDescending}) {
            std::vector<std::pair<std::string, std::string>> expected;
            for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
                expected.emplace_back(program.Rows().Cell(i, column), program.Rows().FullPath(i));
            }
            std::ranges::stable_sort(expected, [&](const auto& a, const auto& b) {
                const int noCase = text::CompareNoCase(a.first, b.first);
                const int order = noCase != 0 ? noCase : a.first.compare(b.first);
                return direction == SortDirection::kAscending ? order < 0 : order > 0;
            });
            results::SortRows(program.Rows(), column, direction);
            std::vector<std::string> paths;
            for (const auto& [cell, path] : expected) {
                paths.push_back(path);
            }
            std::vector<std::string> sorted;
            for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
                sorted.push_back(program.Rows().FullPath(i));
            }
            ASSERT_EQ(sorted, paths) << "column " << column;
        }
    }
}

// However a column is sorted, its spacers stand where a plain reading of its cells puts them.
TEST_F(Sorting, SpacersStandWhereverTheCellChangesBesidesItsCase) {
    for (int i = 0; i < 1500; ++i) {
        const std::string folder = (i % 2 == 0 ? "Disc " : "disc ") + std::to_string(i % 40 / 4);
        const std::string name = (i % 3 == 0 ? "Été " : "été ") + std::to_string(i * 7919 % 200) +
                                 (i % 5 == 0 ? " (1987)" : "") + (i % 7 == 0 ? ".MP3" : ".mp3");
        Disk().AddFileOfSize("C:\\t\\" + folder + "\\" + std::to_string(i % 11) + "\\" + name,
                             static_cast<std::uint64_t>(i % 13));
    }
    Start();
    Set(Form().chkFastSort, "0");
    Click(Form().chkIncludeSubFolders);
    Search("*", "C:\\t");
    results::ResultList& rows = program.Rows();
    for (const Column column :
         {results::kPath, results::kYearRank, results::kSize, results::kDate, results::kExt,
          results::kPathName, results::kName, results::kPathNameNoSrch}) {
        for (int click = 0; click < 2; ++click) {
            ClickHead(column);
            std::size_t groups = 1;
            for (std::size_t i = 1; i + 1 < rows.Count(); ++i) {
                if (rows.IsSpacer(i)) {
                    ++groups;
                    ASSERT_FALSE(
                        text::EqualNoCase(rows.Cell(i - 1, column), rows.Cell(i + 1, column)))
                        << "column " << column << " row " << i;
                } else if (!rows.IsSpacer(i - 1)) {
                    ASSERT_TRUE(text::EqualNoCase(rows.Cell(i - 1, column), rows.Cell(i, column)))
                        << "column " << column << " row " << i;
                }
            }
            ASSERT_EQ(Form().lblGroups.Caption.Get(), std::to_string(groups));
            ASSERT_EQ(rows.Count(), rows.Added().size() + groups - 1);
        }
    }
}

TEST_F(Sorting, FoldersSortBeforeFilesByType) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFolder("C:\\t\\zz");
    Start();
    Click(Form().chkIncludeSubFolders);
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    ClickHead(results::kType);
    EXPECT_THAT(Names(), ElementsAre("zz", "a.txt"));
}

TEST_F(Sorting, AnEmptyListSortsToNothing) {
    Find({});
    ClickHead(results::kSize);
    EXPECT_EQ(program.Rows().Count(), 0U);
    EXPECT_EQ(Form().lblGroups.Caption.Get(), "1");
}

TEST_F(Sorting, APlaylistThatIsEditedIsNotSorted) {
    Find({{"a", 9}, {"b", 1}});
    State().blnPlayListMode = true;
    ClickHead(results::kSize);
    EXPECT_THAT(Names(), ElementsAre("a", "", "b"));
}

TEST_F(Sorting, ProgressShowsFromTwoThousandRowsAndIsGoneAfterwards) {
    for (int i = 0; i < 2002; ++i) {
        Disk().AddFileOfSize("C:\\t\\" + std::to_string(i), 5);
    }
    Start();
    Set(Form().chkFastSort, "0");
    Form().lstMain.SortKey = int{results::kSize};
    Search("*", "C:\\t");
    ASSERT_EQ(Form().lblGroups.Caption.Get(), "1");
    std::vector<std::string> shown;
    S().yielder.SetPump([&] {
        const auto& progress = S().forms.frmProgress;
        if (progress.IsShown()) shown.push_back(progress.lblMain.Caption);
    });
    ClickHead(results::kName);
    EXPECT_THAT(shown, ElementsAre("Removing Spacers...", "Sorting...", "Sorting..."));
    EXPECT_FALSE(S().forms.frmProgress.IsShown());
    EXPECT_TRUE(Form().lstMain.Enabled);
}

TEST_F(Sorting, BothSortsTellThatTheySortAndThenThatTheyGroup) {
    Find({{"a", 9}, {"b", 1}});
    std::vector<std::string> told;
    S().yielder.SetPump([&] {
        const std::string status = Form().lblStatus.Caption;
        if (told.empty() || told.back() != status) told.push_back(status);
    });
    ClickHead(results::kSize);
    EXPECT_THAT(told, ElementsAre("Sorting", "Sorting...", "Grouping....", ""));
    told.clear();
    Click(Form().cmdDoVersionSort);
    EXPECT_THAT(told, ElementsAre("Sorting", "Sorting...", "Grouping....", ""));
}

TEST_F(Sorting, FewerRowsShowNoProgress) {
    Find({{"a", 9}, {"b", 1}});
    bool shown = false;
    S().yielder.SetPump([&] { shown = shown || S().forms.frmProgress.IsShown(); });
    ClickHead(results::kSize);
    EXPECT_FALSE(shown);
}

TEST_F(Sorting, SortingIsLogged) {
    Find({{"a", 9}});
    ClickHead(results::kPathNameNoSrch);
    EXPECT_NE(LogText().find(" User selected to sort by column - Path\\Name without Search Folder"),
              std::string::npos);
}

} // namespace
} // namespace tarvix::testing
