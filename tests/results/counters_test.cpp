#include "results/counters.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

using results::RefreshStep;

TEST(RefreshStep, TheWholeTable) {
    struct Row {
        std::int64_t seen;
        bool size;
        bool date;
        std::int64_t step;
    };
    for (const Row& row :
         {Row{0, false, false, 0}, Row{999, false, false, 0}, Row{999, true, true, 0},
          Row{1000, true, false, 0}, Row{1000, false, true, 0}, Row{1000, false, false, 9},
          Row{9999, false, false, 9}, Row{9999, true, false, 0}, Row{10000, true, false, 9},
          Row{10000, true, true, 9}, Row{10000, false, true, 9}, Row{10000, false, false, 99},
          Row{240'000, false, false, 99}}) {
        EXPECT_EQ(RefreshStep(row.seen, row.size, row.date), row.step)
            << row.seen << " size " << row.size << " date " << row.date;
    }
}

class CounterLabels : public ProgramFixture {
  protected:
    std::string Found() { return Form().lblNumOfFilesFound.Caption; }
    std::string Seen() { return Form().lblNumOfFilesAttrib.Caption; }
};

TEST_F(CounterLabels, FollowWhenTheRepaintCounterPassesTheStep) {
    Start();
    results::Counters counters(S());
    counters.SetRefreshEvery(2);
    counters.CountFileFound();
    counters.CountFileFound();
    EXPECT_EQ(Found(), "0");
    counters.CountFileFound();
    EXPECT_EQ(Found(), "3");
    counters.CountFileFound();
    EXPECT_EQ(Found(), "3");
}

TEST_F(CounterLabels, FollowEachObjectWithAStepOfZero) {
    Start();
    results::Counters counters(S());
    counters.SetRefreshEvery(0);
    counters.CountFileSeen();
    EXPECT_EQ(Seen(), "1");
    counters.CountFolderFound();
    EXPECT_EQ(Form().lblNumOfDirsFound.Caption.Get(), "1");
}

TEST_F(CounterLabels, SeenIsNeverLowerThanFound) {
    Start();
    results::Counters counters(S());
    counters.SetRefreshEvery(0);
    counters.CountFileFound();
    counters.CountFileFound();
    EXPECT_EQ(Seen(), "2");
}

TEST_F(CounterLabels, EveryCountYields) {
    Start();
    results::Counters counters(S());
    const auto before = S().yielder.Count();
    counters.CountFileSeen();
    counters.CountFileFound();
    counters.CountFolderFound();
    EXPECT_EQ(S().yielder.Count(), before + 3);
}

TEST_F(CounterLabels, StepsComeFromFilesSeenOrFromFolders) {
    Start();
    results::Counters counters(S());
    State().lngSeenFiles = 5000;
    counters.SetRefreshCounters();
    EXPECT_EQ(counters.RefreshEvery(), 9);
    counters.SetRefreshCountersFolders(10'000);
    EXPECT_EQ(counters.RefreshEvery(), 99);
    results::Counters sizeTested(S(), true);
    sizeTested.SetRefreshCounters();
    EXPECT_EQ(sizeTested.RefreshEvery(), 0);
}

} // namespace
} // namespace tarvix::testing
