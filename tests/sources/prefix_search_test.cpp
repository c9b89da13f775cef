#include "actions/sources/prefix_search.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::actions {
namespace {

class PrefixSearchTest : public ::testing::Test {
  protected:
    // The place of the first prefix found, or -1.
    int First(const std::vector<std::string>& prefixes, std::string_view content) {
        machine.disk.AddFile("C:\\f", content);
        const auto found =
            PrefixSearch(prefixes).FirstIn(machine.disk, "C:\\f", [] { return true; });
        return *found ? static_cast<int>(**found) : -1;
    }
    platform::MemoryPlatform machine;
};

TEST_F(PrefixSearchTest, TheFirstOfTheListCountsNotOfTheFile) {
    EXPECT_EQ(First({"alpha", "beta"}, "some BETA, then Alpha"), 0);
    EXPECT_EQ(First({"gamma", "beta"}, "some BETA, then Alpha"), 1);
    EXPECT_EQ(First({"gamma"}, "some BETA"), -1);
    EXPECT_EQ(First({"", "s"}, "some"), 1);
    EXPECT_EQ(First({}, "some"), -1);
}

TEST_F(PrefixSearchTest, CaseDoesNotCountInAnyScript) {
    EXPECT_EQ(First({"KÖLN"}, "in köln am Rhein"), 0);
    EXPECT_EQ(First({"жизнь"}, "ЖИЗНЬ"), 0);
}

TEST_F(PrefixSearchTest, WhateverTheFileHolds) {
    using namespace std::string_literals;
    EXPECT_EQ(First({"Köln"}, "in K\xF6ln"), 0) << "Windows-1252";
    EXPECT_EQ(First({"Köln"}, "\xFF\x00\x01 K\xC3\xB6ln \xFE"s), 0) << "UTF-8 among other bytes";
    EXPECT_EQ(First({"abc"}, "\0\0abc\0"s), 0);
}

TEST_F(PrefixSearchTest, OverTheEndOfABlock) {
    constexpr std::size_t kBlock = 1 << 20;
    for (const std::size_t before : {kBlock - 1, kBlock - 3, kBlock, 2 * kBlock - 2}) {
        EXPECT_EQ(First({"ärger"}, std::string(before, 'x') + "Ärger"), 0) << before;
    }
    EXPECT_EQ(First({"first", "second"},
                    "second" + std::string(kBlock, 'x') + "first" + std::string(kBlock, 'y')),
              0);
}

} // namespace
} // namespace tarvix::actions
