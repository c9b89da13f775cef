#include "results/columns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

TEST(ColumnOrder, WhatPeopleLookAtFirstStandsFirst) {
    EXPECT_THAT(results::UsualOrder(), ElementsAre(0, 1, 2, 4, 8, 3, 5, 6, 7, 9, 10, 11, 12, 13, 14,
                                                   15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26));
}

TEST(ColumnOrder, HoldsEachColumnOnce) {
    auto order = results::UsualOrder();
    EXPECT_TRUE(results::IsOrder(order));
    std::swap(order[0], order[20]);
    EXPECT_TRUE(results::IsOrder(order));
    order[0] = order[1];
    EXPECT_FALSE(results::IsOrder(order));
    EXPECT_FALSE(results::IsOrder({}));
    EXPECT_FALSE(results::IsOrder({8, 0}));
    order = results::UsualOrder();
    order.push_back(27);
    EXPECT_FALSE(results::IsOrder(order));
}

TEST(ColumnsForTheUser, AreAllButTheNameAndTheLastTwo) {
    EXPECT_FALSE(results::IsChoosable(results::kName));
    EXPECT_TRUE(results::IsChoosable(results::kSize));
    EXPECT_TRUE(results::IsChoosable(results::kSearchForEntry));
    EXPECT_FALSE(results::IsChoosable(results::kShortPath));
    EXPECT_FALSE(results::IsChoosable(results::kSearchFolderIndex));
}

TEST(ColumnsForTheUser, ThreeTellTheirHeader) {
    std::vector<int> telling;
    for (int column = 0; column < results::kColumnCount; ++column) {
        if (results::TellsItsHeader(column)) telling.push_back(column);
    }
    EXPECT_THAT(telling, ElementsAre(results::kPathNameLength, results::kPathLevels,
                                     results::kSearchForEntry));
}

} // namespace
TEST(ColumnsForTheUser, TheSearchForEntryKeepsItsLeadingZeros) {
    EXPECT_FALSE(results::kColumns[results::kSearchForEntry].rightAlign);
}

} // namespace tarvix::testing
