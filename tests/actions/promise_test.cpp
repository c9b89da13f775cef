#include "tests/actions/random_world.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <string>

namespace tarvix::testing {
namespace {

using ::testing::IsEmpty;

constexpr std::array<int, 8> kErrors{platform::kBadFileName,      platform::kFileNotFound,
                                     platform::kAlreadyExists,    platform::kDiskFull,
                                     platform::kPermissionDenied, platform::kPathFileAccess,
                                     platform::kPathNotFound,     57};

// More rounds where nobody waits for them.
std::uint64_t Rounds(std::uint64_t normal, std::uint64_t nightly) {
    return std::getenv("TARVIX_NIGHTLY") != nullptr ? nightly : normal;
}

void ExpectPromiseKept(RandomWorld& world, const std::string& when) {
    ASSERT_THAT(world.Lost(), IsEmpty()) << when;
    ASSERT_THAT(world.Broken(), IsEmpty()) << when;
}

TEST(Promise, AnySequenceOfActionsLosesNoContent) {
    for (std::uint64_t seed = 1; seed <= Rounds(400, 20'000); ++seed) {
        RandomWorld world(seed);
        world.Live(5);
        ASSERT_NO_FATAL_FAILURE(ExpectPromiseKept(world, "with seed " + std::to_string(seed)));
    }
}

// One call of the platform after the other fails, until a run makes no more calls.
TEST(Promise, AFaultAtAnyCallLosesNoContent) {
    std::size_t runs = 0;
    for (std::uint64_t seed = 1; seed <= Rounds(30, 600); ++seed) {
        bool hasMore = true;
        for (std::size_t call = 1; hasMore; ++call) {
            const int error = kErrors[(seed + call) % kErrors.size()];
            RandomWorld world(seed);
            world.machine.faults.FailCall(call, error);
            world.Live(3);
            hasMore = world.machine.faults.Count() >= call;
            ++runs;
            ASSERT_NO_FATAL_FAILURE(ExpectPromiseKept(
                world, "with seed " + std::to_string(seed) + " when call " + std::to_string(call) +
                           " fails with " + std::to_string(error)));
        }
    }
    EXPECT_GT(runs, 1000U);
}

// From one call on, nothing of a kind works any more.
TEST(Promise, AnOperationThatAlwaysFailsLosesNoContent) {
    for (const char* operation :
         {"Facts", "TruePath", "Holds", "SetAttributes", "CopyFile", "CopyFolder", "MoveFile",
          "MoveFolder", "CreateFolder", "ReadBytes", "Recycle", "Open"}) {
        for (std::uint64_t seed = 1; seed <= Rounds(12, 400); ++seed) {
            const int error = kErrors[seed % kErrors.size()];
            RandomWorld world(seed);
            world.machine.faults.FailAll(operation, error);
            world.Live(3);
            ASSERT_NO_FATAL_FAILURE(
                ExpectPromiseKept(world, "with seed " + std::to_string(seed) + " when each " +
                                             operation + " fails with " + std::to_string(error)));
        }
    }
}

} // namespace
} // namespace tarvix::testing
