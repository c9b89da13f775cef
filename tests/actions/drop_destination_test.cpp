#include "actions/request/drop_destination.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::testing {
namespace {

struct DropDestination : ::testing::Test {
    DropDestination() {
        machine.disk.AddFile("C:\\d\\one.txt");
        machine.disk.AddFile("C:\\d\\paths.MPL");
    }
    std::string Dropped(std::string_view path) {
        return actions::DroppedDestination(machine.platform, path);
    }
    platform::MemoryPlatform machine;
};

TEST_F(DropDestination, AFolderIsTakenAsItIs) {
    EXPECT_EQ(Dropped("/d"), "C:\\d");
}

TEST_F(DropDestination, OfAFileItsFolderIsTaken) {
    EXPECT_EQ(Dropped("/d/one.txt"), "C:\\d");
}

TEST_F(DropDestination, AListOfPathsIsTakenItself) {
    EXPECT_EQ(Dropped("/d/paths.MPL"), "C:\\d\\paths.MPL");
}

TEST_F(DropDestination, WhatIsNotThereIsTakenAsItIs) {
    EXPECT_EQ(Dropped("/d/gone"), "C:\\d\\gone");
}

} // namespace
} // namespace tarvix::testing
