#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarvix::testing {
namespace {

// Facts of a folder's files are read in portions once there are many.
class LargeFolders : public ProgramFixture {
  protected:
    static std::string NameOf(int number) {
        std::string digits = std::to_string(number);
        digits.insert(0, 5 - digits.size(), '0');
        return "f" + digits + (number % 2 == 1 ? ".odd" : ".even");
    }
    static std::uint64_t SizeOf(int number) {
        return 1000 + 7 * static_cast<std::uint64_t>(number);
    }
    static text::DateTime DateOf(int number) {
        return {2025, 1 + number % 12, 1 + number % 28, number % 24, number % 60, number % 59};
    }
    void AddFiles(const std::string& folder, int count) {
        for (int i = 0; i < count; ++i) {
            auto& file = Disk().AddFileOfSize(folder + "\\" + NameOf(i), SizeOf(i));
            file.modified = machine.clock.FromLocal(DateOf(i));
        }
    }
    // The rows from `first` on are the files of these numbers, each with its own facts.
    void ExpectRows(const std::vector<int>& numbers, std::size_t first = 0) {
        ASSERT_EQ(program.Rows().Count(), first + numbers.size());
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const results::ResultRow& row = program.Rows().At(first + i);
            ASSERT_EQ(row.name, NameOf(numbers[i]));
            ASSERT_EQ(row.size, SizeOf(numbers[i])) << row.name;
            ASSERT_EQ(row.date, text::ToSeconds(DateOf(numbers[i]))) << row.name;
        }
    }
    static std::vector<int> Numbers(int from, int to, int step = 1) {
        std::vector<int> numbers;
        for (int i = from; i < to; i += step)
            numbers.push_back(i);
        return numbers;
    }
    void StopWhenFound(std::int64_t files) {
        S().yielder.After(1, [this, files] {
            if (State().blnSearching && State().lngFilesFound >= files) {
                Click(Form().cmdStop);
            } else {
                StopWhenFound(files);
            }
        });
    }
    // On "C:\\t" with five files and its folder "sub" with three; each look at the clock takes
    // `step` nanoseconds.
    void StartOnTwoFolders(std::int64_t step = 0) {
        AddFiles("C:\\t", 5);
        AddFiles("C:\\t\\sub", 3);
        Start();
        WithSubfolders();
        machine.clock.SetStep(step);
        machine.faults.ResetCounts();
    }
    std::size_t Listed(std::string_view folder) {
        const auto& calls = machine.faults.Calls();
        return static_cast<std::size_t>(std::ranges::count_if(calls, [&](const auto& call) {
            return call.operation == "List" && call.path == folder;
        }));
    }
};

TEST_F(LargeFolders, EachRowHasTheFactsOfItsOwnFile) {
    AddFiles("C:\\t", 3000);
    Start();
    Search("*", "C:\\t");
    ExpectRows(Numbers(0, 3000));
}

TEST_F(LargeFolders, CountsAtTheEdgesOfAPortion) {
    Start();
    for (const int count : {1023, 1024, 1025, 1279, 1280, 1281}) {
        const std::string folder = "C:\\t" + std::to_string(count);
        AddFiles(folder, count);
        Search("*", folder);
        ExpectRows(Numbers(0, count));
    }
}

// What one string is done with the next ones still ask for.
TEST_F(LargeFolders, EveryStringHasTheFactsOfItsFilesInManyFolders) {
    constexpr int kFolders = 9;
    for (int folder = 0; folder < kFolders; ++folder)
        AddFiles("C:\\t\\" + std::to_string(folder), 1000);
    Start();
    Set(Form().chkFastSort, "1");
    Click(Form().chkIncludeSubFolders);
    Search("*.even|*.odd|*9.*", "C:\\t");
    std::vector<std::size_t> found(1000);
    for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
        const results::ResultRow& row = program.Rows().At(i);
        const int number = std::stoi(std::string(row.name.substr(1, 5)));
        ASSERT_EQ(row.name, NameOf(number));
        ASSERT_EQ(row.size, SizeOf(number)) << row.name;
        ASSERT_EQ(row.date, text::ToSeconds(DateOf(number))) << row.name;
        ++found[static_cast<std::size_t>(number)];
    }
    EXPECT_THAT(found, ::testing::Each(kFolders));
}

TEST_F(LargeFolders, OnlySomeOfTheNamesMatch) {
    AddFiles("C:\\t", 3000);
    Start();
    Search("*.odd", "C:\\t");
    ExpectRows(Numbers(1, 3000, 2));
}

TEST_F(LargeFolders, TwoStringsFindTheirOwn) {
    AddFiles("C:\\t", 3000);
    Start();
    Search("*.even|*.odd", "C:\\t");
    std::vector<int> both = Numbers(0, 3000, 2);
    const std::vector<int> odd = Numbers(1, 3000, 2);
    both.insert(both.end(), odd.begin(), odd.end());
    ExpectRows(both);
}

TEST_F(LargeFolders, SubfoldersOfAnySizeStandBehindTheRoot) {
    AddFiles("C:\\t", 2000);
    AddFiles("C:\\t\\large", 1500);
    AddFiles("C:\\t\\small", 3);
    Start();
    WithSubfolders();
    Search("*", "C:\\t");
    std::vector<int> all = Numbers(0, 2000);
    for (const int count : {1500, 3}) {
        const std::vector<int> more = Numbers(0, count);
        all.insert(all.end(), more.begin(), more.end());
    }
    ExpectRows(all);
}

TEST_F(LargeFolders, AFilterBySizeTakesTheRightFiles) {
    AddFiles("C:\\t", 3000);
    Start();
    Click(Form().chkSize);
    Form().cboSize.Text = std::string("Range");
    Form().txtSize1.Text = std::to_string(SizeOf(255));
    Form().txtSize2.Text = std::to_string(SizeOf(2048));
    Search("*", "C:\\t");
    ExpectRows(Numbers(255, 2049));
}

TEST_F(LargeFolders, AFilterByDateTakesTheRightFiles) {
    AddFiles("C:\\t", 3000);
    Start();
    Click(Form().chkDate);
    Form().cboDate.Text = std::string("Since");
    Form().lblDate1.SetDate(text::DateTime{2025, 12, 1, 0, 0, 0});
    Search("*", "C:\\t");
    ExpectRows(Numbers(11, 3000, 12));
}

TEST_F(LargeFolders, AStopInTheMiddleKeepsTheRowsSoFar) {
    AddFiles("C:\\t", 3000);
    Start();
    for (const int stopAt : {1, 255, 256, 257, 1700}) {
        StopWhenFound(stopAt);
        Search("*", "C:\\t");
        ExpectRows(Numbers(0, stopAt));
        EXPECT_EQ(Form().lblStatus.Caption.Get(), "Search stopped prematurely");
        EXPECT_TRUE(Form().cmdSearch.Enabled);
    }
    Search("*", "C:\\t");
    ExpectRows(Numbers(0, 3000));
}

TEST_F(LargeFolders, FilesThatVanishLeaveTheOthersTheirFacts) {
    AddFiles("C:\\t", 3000);
    Start();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("FolderFacts", 700, [this] {
        for (const int gone : {900, 1023, 1024, 2999})
            Disk().Node("C:\\t\\" + NameOf(gone))->Detach();
    });
    Search("*", "C:\\t");
    std::vector<int> left = Numbers(0, 3000);
    std::erase_if(left, [](int i) { return i == 900 || i == 1023 || i == 1024 || i == 2999; });
    ExpectRows(left);
}

TEST_F(LargeFolders, AFolderThatVanishesBeforeItsFactsAreReadGivesNothing) {
    AddFiles("C:\\t\\gone", 3000);
    AddFiles("C:\\u", 2);
    Start();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("FolderFacts", 1, [this] { Disk().Node("C:\\t")->Detach(); });
    Search("*", "C:\\t\\gone|C:\\u");
    EXPECT_GE(program.Rows().Count(), 2U);
    const std::size_t others = program.Rows().Count() - 2;
    ExpectRows(Numbers(0, 2), others);
}

TEST_F(LargeFolders, OneOfEachReadsNoMoreThanItNeeds) {
    AddFiles("C:\\t", 3000);
    Start();
    Set(Form().chkOneEach, "1");
    machine.faults.ResetCounts();
    Search("*", "C:\\t");
    ExpectRows({0});
    EXPECT_EQ(machine.faults.Count("FolderFacts"), 1U);
}

TEST_F(LargeFolders, TheRootIsListedOnceForItselfAndItsSubfolders) {
    StartOnTwoFolders();
    Search("*", "C:\\t");
    ExpectRows({0, 1, 2, 3, 4, 0, 1, 2});
    EXPECT_EQ(Listed("C:\\t"), 1U);
    EXPECT_EQ(Listed("C:\\t\\sub"), 1U);
}

TEST_F(LargeFolders, TheRootIsListedOnceForAllStrings) {
    StartOnTwoFolders();
    Search("*.even|*.odd|f*", "C:\\t");
    EXPECT_EQ(program.Rows().Count(), 8U);
    EXPECT_EQ(Listed("C:\\t"), 1U);
    EXPECT_EQ(Listed("C:\\t\\sub"), 1U);
}

TEST_F(LargeFolders, ARootThatTakesLongToListIsListedOnce) {
    StartOnTwoFolders();
    machine.faults.BeforeCall("List", 1, [this] { machine.clock.Sleep(5'000); });
    Search("*", "C:\\t");
    EXPECT_EQ(machine.clock.slept, 5'000);
    ExpectRows({0, 1, 2, 3, 4, 0, 1, 2});
    EXPECT_EQ(Listed("C:\\t"), 1U);
}

TEST_F(LargeFolders, ARootListedLongAgoIsListedAgain) {
    StartOnTwoFolders(600'000'000);
    Search("*", "C:\\t");
    ExpectRows({0, 1, 2, 3, 4, 0, 1, 2});
    EXPECT_EQ(Listed("C:\\t"), 2U);
    EXPECT_EQ(Listed("C:\\t\\sub"), 1U);
}

TEST_F(LargeFolders, ASubfolderMadeMeanwhileIsFoundOnceTheRootIsListedAgain) {
    AddFiles("C:\\t", 2);
    Start();
    WithSubfolders();
    machine.clock.SetStep(600'000'000);
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("FolderFacts", 1, [this] { AddFiles("C:\\t\\new", 2); });
    Search("*", "C:\\t");
    ExpectRows({0, 1, 0, 1});
}

TEST_F(LargeFolders, EachLocationHasItsOwnRoot) {
    AddFiles("C:\\t", 2);
    AddFiles("C:\\t\\sub", 3);
    AddFiles("C:\\u", 4);
    AddFiles("C:\\u\\sub", 1);
    Start();
    WithSubfolders();
    machine.clock.SetStep(0);
    machine.faults.ResetCounts();
    Search("*", "C:\\t|C:\\u|C:\\t\\sub");
    ExpectRows({0, 1, 0, 1, 2, 0, 1, 2, 3, 0, 0, 1, 2});
    EXPECT_EQ(Listed("C:\\t"), 1U);
    EXPECT_EQ(Listed("C:\\u"), 1U);
}

TEST_F(LargeFolders, ASecondSearchRightAfterSeesWhatIsNewAtTheRoot) {
    AddFiles("C:\\t", 2);
    Start();
    WithSubfolders();
    machine.clock.SetStep(0);
    Search("*", "C:\\t");
    ExpectRows({0, 1});
    AddFiles("C:\\t", 4);
    AddFiles("C:\\t\\sub", 1);
    Search("*", "C:\\t");
    ExpectRows({0, 1, 2, 3, 0});
}

} // namespace
} // namespace tarvix::testing
