#include "tests/sweep/sweep_world.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <iterator>

// The program is killed, or told that it failed, at one file system call after the other. Whatever
// happens, no content is lost, no half file bears a final name, what was to be overwritten stands
// or is in the trash, the modes of the sources are theirs, and the next action in the same folders
// takes away what was left there.
namespace tarvix::sweep {
namespace {

struct Command {
    const char* name;
    const char* words;
    bool needsSecondDisk = false;
};

// For the names of the tests.
void PrintTo(const Command& command, std::ostream* out) {
    *out << command.name;
}

constexpr Command kCommands[] = {
    {"CopyNew", "copy *.dat --in ROOT/s --to ROOT/new --structure folder --yes"},
    {"CopySkip", "copy *.dat --in ROOT/s --to ROOT/t --structure folder --on-duplicate skip --yes"},
    {"CopyRename",
     "copy *.dat --in ROOT/s --to ROOT/t --structure folder --on-duplicate rename --yes"},
    {"CopyOverwrite",
     "copy *.dat --in ROOT/s --to ROOT/t --structure folder --on-duplicate overwrite --yes"},
    {"CopyOverwriteOnOtherDisk",
     "copy *.dat --in ROOT/s --to DISK/t --structure folder --on-duplicate overwrite --yes", true},
    {"CopyFolder", "copy sub --kind folders --in ROOT/s --to ROOT/new --yes"},
    {"Move", "move *.dat --in ROOT/s --to ROOT/t --structure folder --on-duplicate rename --yes"},
    {"MoveToOtherDisk",
     "move *.dat --in ROOT/s --to DISK/t --structure folder --on-duplicate rename --yes", true},
    {"Rename", "rename *.dat --in ROOT/s --insert new_ --yes"},
    {"Delete", "delete *.dat --in ROOT/s --yes"},
};

struct FaultKind {
    const char* name;
    Fault fault;
    int error = 0;
};
constexpr FaultKind kFaults[] = {
    {"killed before", Fault::kKillBefore},
    {"killed behind", Fault::kKillAfter},
    {"EIO", Fault::kFail, EIO},
    {"ENOSPC", Fault::kFail, ENOSPC},
    {"EACCES", Fault::kFail, EACCES},
};

bool IsNightly() {
    return std::getenv("TARVIX_NIGHTLY") != nullptr;
}

struct Row {
    int runs = 0;
    std::size_t lost = 0;
    std::size_t broken = 0;
    std::size_t gone = 0;
    std::size_t changed = 0;
    std::size_t left = 0;
};

class SweepTest : public ::testing::TestWithParam<Command> {
  protected:
    void RunOnce(const Plan& plan, const char* fault, Row& row) {
        world.Reset();
        const TracedRun run = world.Run(GetParam().words, plan);
        if (!run.isHit) return;
        const Damage damage = world.Assess();
        ++row.runs;
        row.lost += damage.lost.size();
        row.broken += damage.broken.size();
        row.gone += damage.gone.size();
        row.changed += damage.changed.size();
        const std::string when = std::string(fault) + " at call " + std::to_string(plan.call) +
                                 ", " + run.hitCall + " " + run.hitPath + "\n";
        EXPECT_TRUE(damage.lost.empty())
            << damage.lost.front() << " is lost, " << when << world.Listing();
        EXPECT_TRUE(damage.broken.empty())
            << damage.broken.front() << " is no whole file, " << when << world.Listing();
        EXPECT_TRUE(damage.gone.empty())
            << damage.gone.front() << " is gone, " << when << world.Listing();
        EXPECT_TRUE(damage.changed.empty())
            << damage.changed.front() << " has another mode, " << when << world.Listing();
        if (damage.left.empty()) return;
        world.RunFreely(GetParam().words);
        const Damage later = world.Assess();
        row.left += later.left.size();
        EXPECT_TRUE(later.left.empty())
            << later.left.front() << " is still there, " << when << world.Listing();
        EXPECT_TRUE(later.lost.empty())
            << later.lost.front() << " is lost at the next action, " << when << world.Listing();
    }

    SweepWorld world;
};

TEST_P(SweepTest, LosesNothing) {
    if (!CanTrace()) GTEST_SKIP() << "no process may be traced here";
    if (GetParam().needsSecondDisk && !world.HasSecondDisk()) GTEST_SKIP() << "there is one disk";
    world.Reset();
    const TracedRun whole = world.Run(GetParam().words, {});
    // A duplicate that was skipped counts as left undone.
    ASSERT_TRUE(whole.exitCode == 0 || whole.exitCode == 1) << world.Listing();
    ASSERT_GT(whole.calls, 20) << "too little was traced";

    // Each fault has calls of its own, so that together they lie close.
    constexpr int kKinds = std::size(kFaults);
    constexpr int kThinnedRuns = 30;
    const int step = IsNightly() ? 1 : std::max(1, whole.calls * kKinds / kThinnedRuns);
    for (int kind = 0; kind < kKinds; ++kind) {
        Row row;
        const FaultKind& fault = kFaults[kind];
        for (int call = 1 + kind * step / kKinds; call <= whole.calls; call += step) {
            RunOnce({call, fault.fault, fault.error}, fault.name, row);
        }
        EXPECT_GT(row.runs, 0) << fault.name;
        std::cout << GetParam().name << ", " << fault.name << ": " << row.runs << " runs, lost "
                  << row.lost << ", half under a final name " << row.broken << ", target gone "
                  << row.gone << ", mode changed " << row.changed << ", left behind " << row.left
                  << "\n";
    }
}

INSTANTIATE_TEST_SUITE_P(EachCall, SweepTest, ::testing::ValuesIn(kCommands),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace tarvix::sweep
