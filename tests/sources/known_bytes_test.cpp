#include "actions/request/known_bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvix::testing {
namespace {

using actions::FilePart;
using actions::KnownBytes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(KnownBytesTest, WhatIsLackingIsToldOnceAndReadOnceItIsThere) {
    KnownBytes known;
    EXPECT_FALSE(known.Lacks());
    EXPECT_EQ(known.Read("C:\\a", 0, 10).error().number, actions::kStillReading);
    EXPECT_EQ(known.Read("C:\\a", 4, 10).error().number, actions::kStillReading);
    EXPECT_TRUE(known.Lacks());
    EXPECT_FALSE(known.Lacks());
    EXPECT_THAT(known.TakeLacking(), ElementsAre(FilePart{"C:\\a", 0}));
    (void)known.Read("C:\\a", 0, 10);
    EXPECT_THAT(known.TakeLacking(), IsEmpty());
    known.Take({"C:\\a", 0}, "abcdef");
    EXPECT_EQ(known.Read("C:\\a", 0, 4), "abcd");
    EXPECT_EQ(known.Read("C:\\a", 4, 4), "ef");
    EXPECT_EQ(known.Read("C:\\a", 6, 4), "");
    known.Clear();
    EXPECT_FALSE(known.Read("C:\\a", 0, 4).has_value());
    EXPECT_THAT(known.TakeLacking(), ElementsAre(FilePart{"C:\\a", 0}));
}

TEST(KnownBytesTest, AReadGoesOnInTheNextPart) {
    KnownBytes known;
    known.Take({"C:\\a", 0}, std::string(actions::kFilePart - 1, 'x') + "y");
    EXPECT_FALSE(known.Read("C:\\a", actions::kFilePart - 2, 4).has_value());
    EXPECT_THAT(known.TakeLacking(), ElementsAre(FilePart{"C:\\a", 1}));
    known.Take({"C:\\a", 1}, "z");
    EXPECT_EQ(known.Read("C:\\a", actions::kFilePart - 2, 4), "xyz");
}

TEST(KnownBytesTest, AFailureStands) {
    KnownBytes known;
    known.Take({"C:\\a", 0}, platform::Failure(platform::kPermissionDenied, "no"));
    EXPECT_EQ(known.Read("C:\\a", 0, 4).error().number, 70);
    EXPECT_FALSE(known.Lacks());
}

TEST(KnownBytesTest, BeyondThirtyTwoMegabytesNoMoreIsAskedFor) {
    KnownBytes known;
    for (std::uint64_t i = 0; i < 33; ++i)
        known.Take({"C:\\a", i}, std::string(actions::kFilePart, 'x'));
    EXPECT_TRUE(known.IsFull());
    EXPECT_FALSE(known.Read("C:\\b", 0, 4).has_value());
    EXPECT_TRUE(known.Lacks());
    EXPECT_THAT(known.TakeLacking(), IsEmpty());
}

} // namespace
} // namespace tarvix::testing
